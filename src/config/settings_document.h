#pragma once

#include "base/field.h"
#include "base/run_state.h"
#include "config/bindings.h"
#include "config/bots.h"
#include "config/rotation.h"

#include <array>
#include <cstdint>

namespace gatehouse {

/// All values of one config document, one field per control, named by the control. A field's line gives its name, its
/// caption and its hint, then its range or entries and the value before any document.
struct SettingsDocument {
    SettingsDocument();

    FieldGroup server{"server"};
    FieldSection welcome{server, "Welcome", Column::Left};
    TextField q3hostname{
        welcome, {"q3hostname", "Hostname:", "What the world will call your server. Make it worth remembering."}};
    TextField q3motd{welcome, {"q3motd", "Message:", "Shown to people while they connect. Some even read it."}};
    FieldSection game{server, "Game", Column::Left};
    ListField modcombo{game,
                       {"modcombo", "Mod:",
                        "Which game is played: the original, or a mod that was found in the game's folder. Its game "
                        "types, options and keys come along."}};
    ListField q3gametype{game,
                         {"q3gametype", "Game Type:", "How the game is played; the mod says which ways there are."}};
    LabelField fraglabel{game, {.name = "fraglabel", .caption = "Limit:", .marksDocument = false}, "Frags:"};
    TextField fraglimit{game,
                        {"fraglimit", "Frag Limit:", "First to this many wins. Captures instead of frags in CTF."},
                        "20",
                        Range{5, 200, 5}};
    TextField timelimit{game,
                        {"timelimit", "Time Limit:", "Minutes until somebody wins whether they like it or not."},
                        "20",
                        Range{5, 180, 5}};
    TextField q3quadfactor{
        game,
        {"q3quadfactor", "Quad Factor:", "How much the quad amplifies damage: 1 = No Quad Effect. 3 = Standard Quad."},
        "",
        Range{1, 5, 1}};
    TextField q3weaptime{game,
                         {"q3weaptime", "Weap Time:", "Seconds until a weapon comes back after someone grabbed it."},
                         "5",
                         Range{5, 180, 5}};
    CheckField dowarmup{game,
                        {"dowarmup", "Always Warmup:",
                         "If on, warmup applies to all game types. If off, warmup is only for team/ctf games", false}};
    TextField warmup{
        game, {"warmup", "Warmup:", "Seconds to run around shooting people before it counts."}, "", Range{0, 600, 10}};
    CheckField fgame{game,
                     {"fgame", "Friendly Fire:", "If ticked, you can shoot your own team. Watch how many say sorry."}};
    CheckField forcebalance{
        game, {"forcebalance", "Force Balance:", "Nobody gets to join the team that is already winning by numbers."}};
    CheckField autojoin{
        game, {"autojoin", "Auto-Join Team:", "Puts people on a team as they arrive, before they can be choosy."}};
    FieldSection players{server, "Players", Column::Right};
    TextField q3playerlimit{players,
                            {"q3playerlimit", "Players:", "How many can play at once. Your bandwidth may disagree."},
                            "",
                            Range{1, 64, 1}};
    TextField q3minplayers{players,
                           {"q3minplayers", "Min Players:",
                            "If fewer people than this play, bots fill the places, and leave when people come."},
                           "",
                           Range{0, 32, 1}};
    CheckField q3usepass{players, {"q3usepass", "Client Pass:", "Only who knows the password may join."}};
    TextField q3serverpass{players, {"q3serverpass", "Client Password:", "What players have to give to join."}};
    CheckField q3userconpass{
        players, {"q3userconpass", "RCon Pass:", "Who knows the password may command the server from afar."}};
    TextField q3rconpass{players,
                         {"q3rconpass", "RCon Password:", "What has to be given to command the server from afar."}};
    CheckField q3allowvote{
        players, {"q3allowvote", "Voting:", "Lets the players vote on maps and kicks. Democracy, more or less."}};
    CheckField q3cheats{
        players,
        {"q3cheats", "Cheats:",
         "Allows the game's cheats. Maps are then started with devmap, except when there is only one of them."}};
    FieldSection network{server, "Network", Column::Right};
    CheckField q3langame{network,
                         {"q3langame", "LAN Game:",
                          "If ticked, the server won't attempt to report it's existence to the id master server."}};
    TextField q3serverip{network,
                         {"q3serverip", "IP Address:",
                          "If your server has more than one network card, but you only want it to use one of them, "
                          "put it's address here. Normally blank."}};
    TextField q3serverport{network,
                           {"q3serverport", "Port:", "What UDP port your server listens on. Default is 27960"}};
    TextField sv_minping{network,
                         {"sv_minping", "Min Ping:",
                          "Players who are nearer than this, in milliseconds, can't join. 0 lets everybody in."}};
    TextField sv_maxping{network, {"sv_maxping", "Max Ping:", "Keep those lagged-out turkeys off your server."}};
    TextField q3caprate{network,
                        {"q3caprate", "RateCap:", "Most bytes/sec that any one player may take from you. 0 = no cap."}};
    CheckField q3pure{network,
                      {"q3pure", "Pure Server:",
                       "If ticked, players can't join with custom models, skins etc. Only really for competition "
                       "servers."}};
    CheckField sv_allowdownload{network,
                                {"sv_allowdownload", "Allow D/L:",
                                 "Lets players fetch what they lack from you. Slowly. Needs a pure server.", false}};
    CheckField q3clientsync{
        network,
        {"q3clientsync", "Sync Clients:", "Only tick this if you are trying to record demos. Otherwise leave it off."}};
    FieldSection memory{server, "Memory", Column::Right};
    TextField q3hunksize{memory,
                         {.name = "q3hunksize",
                          .caption = "Hunk Size:",
                          .hint = "Megabytes of memory for maps and models. The game does not run with less than 26.",
                          .takenWhenLeft = true},
                         "56",
                         Range{64, 256, 16}};

    FieldGroup bots{"bots"};
    FieldSection joins{bots, "Who Joins", Column::Left};
    CheckField q3randbots{joins,
                          {"q3randbots", "Random Bots:",
                           "With a tick, bots are drawn by lot at each start. Without one, those in the list join."}};
    FieldSection behaviour{bots, "Behaviour", Column::Left};
    CheckField q3bot_nochat{behaviour, {"q3bot_nochat", "Quiet Bots:", "Bots keep their opinions to themselves."}};
    CheckField q3botfastchat{behaviour,
                             {"q3botfastchat", "Fast Chat:", "Bots type faster than any human. You have been warned."}};
    CheckField q3botrjump{
        behaviour, {"q3botrjump", "Rocket Jump:", "Bots may blow themselves up to get to higher places. Like you do."}};
    FieldSection randomBots{bots, "Random Bots", Column::Right};
    TextField q3randnum{randomBots, {"q3randnum", "How Many:", "How many join at each start."}, "1", Range{0, 64, 1}};
    TextField q3randskill{randomBots,
                          {"q3randskill", "Skill:", "From 1, who can hardly aim, to 5, who never misses."},
                          "1",
                          Range{1, 5, 1}};

    FieldGroup player{"player"};
    FieldSection identity{player, "Player", Column::Left};
    TextField q3playername{
        identity,
        {"q3playername", "Name:", "Create colored names by using the caret (^) followed by a number from 1 to 7."}};
    CheckField q3sexmale{identity, {"q3sexmale", " Male:", "The game speaks of you as of a man."}, 1};
    CheckField q3sexfemale{identity, {"q3sexfemale", " Female:", "The game speaks of you as of a woman."}};
    TextField q3handicap{
        identity,
        {"q3handicap", "Handicap:", "Health that you start with, in percent. Less makes you a gentleman."},
        "",
        Range{5, 100, 5}};
    CheckField cg_autoswitch{identity,
                             {"cg_autoswitch", "Autoswitch:", "Picks up a gun and uses it at once, wise or not."}};
    FieldSection looks{player, "Looks", Column::Left};
    LabelField currmodel{looks, {"currmodel", "Model/Skin:"}, "Sarge/Default"};
    LabelField q3fxcolor{
        looks,
        {"q3fxcolor", "FX Colour:", "The colour of your rail trail and of what else glows when you fire."},
        "1",
        Range{1, 7, 1}};
    LabelField chindex{looks, {"chindex", "Crosshair:", "The shape of the crosshair."}, "0", Range{0, 10, 1}};

    FieldGroup video{"video"};
    FieldSection screen{video, "Screen", Column::Left};
    ListField q3vidres{screen,
                       {"q3vidres", "Resolution:",
                        "Video mode. If you pick something that your card can't do, the game will run at 640x480."},
                       {"320x240", "400x300", "512x384", "640x480", "800x600", "960x720", "1024x768", "1152x864",
                        "1280x1024", "1600x1200", "2048x1536", "856x480 (Wide)"}};
    CheckField q3fullscreen{
        screen, {"q3fullscreen", "Fullscreen:", "Untick this to play in a window, with your boss in mind."}};
    ListField q3colordepth{
        screen,
        {"q3colordepth", "Color Depth:", "Bits for each point of the screen. \"Default\" is the desktop's."},
        {"Default", "16-Bit", "32-Bit"}};
    SliderField q3brightness{
        screen,
        {"q3brightness", "Brightness:",
         "In hundredths: 100 is as the maps were made, 200 is for those who want to see what hides in the dark."},
        {50, 200, 10, 25},
        50};
    SliderField q3screensize{
        screen,
        {"q3screensize", "Screen Size:", "In percent. Smaller leaves a frame and gives a slow machine less to paint."},
        {0, 100, 10, 10},
        0};
    FieldSection driver{video, "Driver", Column::Left};
    CheckField q3GLext{
        driver, {"q3GLext", "GL Extensions:", "The fancy parts of your video driver. Untick if it falls over a lot."}};
    CheckField r_depthbits{
        driver,
        {"r_depthbits", "32-Bit Z Buffer:", "If you enable this, then hidden surface removal will be more accurate."}};
    CheckField q3syncframe{
        driver, {"q3syncframe", "Sync Frames:", "Waits for the card to finish each frame. Cures a mouse that lags."}};
    FieldSection detail{video, "Detail", Column::Right};
    ListField q3texquality{detail,
                           {"q3texquality", "Texture Quality:", "Bits per texel. More looks better and costs memory."},
                           {"Default", "16-Bit", "32-Bit"}};
    SliderField q3texdetail{detail,
                            {"q3texdetail", "Texture Detail:", "All the way left for porridge, right for wallpaper."},
                            {0, 3, 1, 1},
                            0};
    ListField q3geometry{
        detail, {"q3geometry", "Geometry Detail:", "How round the round things are. Low is faster."}, {"Low", "High"}};
    ListField q3lighting{detail,
                         {"q3lighting", "Lighting:", "Lightmap looks right. Vertex looks wrong, but in a hurry."},
                         {"Lightmap", "Vertex"}};
    CheckField q3trilinear{
        detail,
        {"q3trilinear", "Trilinear:", "Smears the lines on the floor where texture sizes meet. Costs a little."}};
    FieldSection effects{video, "Effects", Column::Right};
    CheckField q3dynamiclight{
        effects, {"q3dynamiclight", "Dynamic Light:", "Rockets light up the corridor. Handy, if you see them coming."}};
    CheckField q3fastsky{
        effects, {"q3fastsky", "Fast Sky:", "Swaps the sky for one plain colour. You weren't looking up anyway."}};
    CheckField q3simpleitems{
        effects, {"q3simpleitems", "Simple Items:", "Flat pictures instead of models. Ugly, quick, easy to spot."}};
    CheckField q3wallmarks{
        effects, {"q3wallmarks", "Wall Marks:", "Bullet holes and scorch marks, for those who admire their own work."}};
    CheckField q3brass{effects, {"q3brass", "Eject Brass:", "Empty shells on the floor. Nobody sweeps them up."}};
    CheckField q3forcemodels{effects,
                             {"q3forcemodels", "Force Models:",
                              "If this is checked, then your game will ignore people's model settings and make "
                              "everyone look like Sarge. This is good if you are getting sick of the little 'freezes' "
                              "caused by model loading."}};

    FieldGroup tweak1{"tweak1"};
    FieldSection movement{tweak1, "Mouse and Movement", Column::Left};
    TextField sensitivity{
        movement, {"sensitivity", "Mouse Speed:", "Default is 5, I play at 12, some freaks go to 30. Whatever."}};
    CheckField cl_mouseaccel{
        movement, {"cl_mouseaccel", "Mouse Accel:", "The faster you move it, the further it goes. An acquired taste."}};
    CheckField m_filter{movement,
                        {"m_filter", "Mouse Filter:", "Smooths the mouse by averaging. Also smooths your reactions."}};
    CheckField invertmouse{movement, {"invertmouse", "Invert", "Forward looks down, as in an aeroplane."}};
    CheckField cl_run{movement, {"cl_run", "Always Run:", "Walking is for people who like being shot."}};
    FieldSection connection{tweak1, "Connection", Column::Left};
    TextField q3rate{connection,
                     {"q3rate", "Data Rate:", "Basically the speed in bytes/sec of your net connection."},
                     "",
                     Range{2500, 25000, 500}};
    SliderField q3snaps{
        connection,
        {"q3snaps", "Snapshots:",
         "How often in a second the server tells you what happens. No server tells more than it wants to."},
        {1, 30, 1, 5},
        1};
    CheckField cl_motd{connection, {"cl_motd", "Use ID motd:", "Fetches the message of the day while you connect."}};
    FieldSection sound{tweak1, "Sound", Column::Left};
    CheckField q3soundquality{
        sound, {"q3soundquality", "High Quality Sound:", "22 kHz instead of 11. More memory, crisper screams."}};
    CheckField q3a3d{sound, {"q3a3d", "A3D 3D Sound:", "For sound cards that can do it. Ears at the back, too."}};
    SliderField q3effectsvol{
        sound, {"q3effectsvol", "Effects Vol:", "Shots, steps and screams, in percent."}, {0, 100, 10, 30}, 0};
    SliderField q3musicvol{
        sound,
        {"q3musicvol", "Music Vol:", "In percent. Most people who hear it too often choose 0, and start faster."},
        {0, 100, 10, 30},
        0};
    FieldSection view{tweak1, "View", Column::Right};
    TextField cg_fov{view,
                     {"cg_fov", "Normal FOV:", "Degrees you see at once. Above 120 your lunch may come back."},
                     "",
                     Range{1, 360, 5}};
    TextField cg_zoomfov{view,
                         {"cg_zoomfov", "Zoomed FOV:", "Degrees you see while zoomed. Smaller gets you closer."},
                         "",
                         Range{1, 360, 5}};
    CheckField cg_draw2d{view,
                         {"cg_draw2d", "Draw 2D:",
                          "Everything that is painted over the picture: numbers, icons, crosshair. Without it you have "
                          "a clean picture and no idea."}};
    CheckField q3identifytarget{
        view, {"q3identifytarget", "Identify Target:", "Shows the name of whoever you point at, before the end."}};
    CheckField q3teamoverlay{view,
                             {"q3teamoverlay", "Team Overlay:",
                              "Where your team is and how it does, in a corner. Only the benchmark's config has it; in "
                              "a game, the game's own menu decides."}};
    FieldSection drawing{tweak1, "Drawing", Column::Right};
    TextField com_maxfps{
        drawing,
        {"com_maxfps", "Max FPS:", "The system won't ever exceed the FPS set here. Can make gameplay more consistent."},
        "",
        Range{10, 200, 10}};
    ListField cg_shadows{
        drawing,
        {"cg_shadows", "Shadows:", "What people throw on the floor. Stencil shadows are right, and expensive."},
        {"None", "Simple", "Stencil", "Simple Stencil"}};
    CheckField r_flares{drawing,
                        {"r_flares", "Draw Light Flares:", "Glow around lights, as if you wore dirty glasses."}};
    CheckField r_preloadtextures{
        drawing, {"r_preloadtextures", "Preload Textures:", "Loads it all before the game begins, not in mid-jump."}};
    CheckField r_detailtextures{
        drawing, {"r_detailtextures", "Detail Textures:", "Extra grain on surfaces seen from very near."}};
    CheckField r_smp{drawing, {"r_smp", "Use 2nd CPU:", "Only if you have one. If in doubt, you don't."}};

    FieldGroup tweak2{"tweak2"};
    FieldSection crosshair{tweak2, "Crosshair", Column::Left};
    TextField cg_crosshairsize{crosshair, {"cg_crosshairsize", "Crosshair Size:", "How large the crosshair is."}};
    TextField cg_crosshairx{
        crosshair, {"cg_crosshairx", "X offset:", "Moves the crosshair sideways. Your shots won't follow it."}};
    TextField cg_crosshairy{crosshair, {"cg_crosshairy", "Y offset:", "Moves the crosshair up or down."}};
    FieldSection railgun{tweak2, "Railgun", Column::Left};
    TextField r_railwidth{railgun, {"r_railwidth", "Rail Width:", "How wide the beam is."}};
    TextField r_railcorewidth{railgun, {"r_railcorewidth", "Rail Core Width:", "How wide its bright middle is."}};
    TextField r_railsegmentlength{
        railgun, {"r_railsegmentlength", "Segment Length:", "How long the pieces are that its spiral is made of."}};
    TextField cg_railtrailtime{
        railgun,
        {"cg_railtrailtime", "Rail Trail Time:", "How long Railgun trails stay visible. Try 10000000 for a fun time."},
        "",
        Range{0, 50000, 100}};
    FieldSection scene{tweak2, "Scene", Column::Left};
    CheckField cg_drawgun{scene, {"cg_drawgun", "Draw Gun:", "Your own gun on the screen. It fires without, too."}};
    CheckField cg_gibs{scene, {"cg_gibs", "Draw Gibs:", "Bits of people. Untick for a tidier arena."}};
    CheckField com_blood{scene, {"com_blood", "Draw Blood:", "Red where it hits."}};
    CheckField r_drawsun{scene, {"r_drawsun", "Draw the Sun:", "On maps that have one. Most are gloomy on purpose."}};
    FieldSection statusBar{tweak2, "Status Bar", Column::Right};
    CheckField drawicons{
        statusBar, {"drawicons", "Draw Any Icons:", "All the little pictures in the status bar, or none of them."}};
    CheckField cg_draw3dicons{
        statusBar, {"cg_draw3dicons", "Draw 3D Icons:", "Icons that turn round. Flat ones are a touch quicker."}};
    CheckField cg_drawstatus{
        statusBar,
        {"cg_drawstatus", "Show Player Health/Armor:", "How much of you is left. Ignorance is not bliss here."}};
    CheckField cg_drawammowarning{
        statusBar, {"cg_drawammowarning", "Ammo Warning:", "Says LOW AMMO shortly before you find out yourself."}};
    FieldSection onScreen{tweak2, "On the Screen", Column::Right};
    CheckField cg_drawattacker{
        onScreen, {"cg_drawattacker", "Show Attacker:", "Shows the face of whoever hit you last. Remember it."}};
    CheckField cg_drawrewards{
        onScreen, {"cg_drawrewards", "Show Rewards:", "The medals. Impressive, excellent, or a bare screen."}};
    CheckField cg_drawtimer{onScreen, {"cg_drawtimer", "Show Timer:", "How long you have been losing, to the second."}};
    CheckField cg_drawfps{onScreen, {"cg_drawfps", "Show FPS:", "Frames per second. For boasting, or for sulking."}};
    CheckField cg_drawsnapshot{
        onScreen, {"cg_drawsnapshot", "Show Snapshots:", "Counts what the server sends you. Mostly a curiosity."}};
    CheckField cg_lagometer{onScreen,
                            {"cg_lagometer", "Show Lagometer:", "A small graph that proves it wasn't your fault."}};

    /// What has no control: the limits of each game type that are not on show.
    FieldGroup limits{"limits"};
    NumberField ui_ffa_fraglimit{limits, {"ui_ffa_fraglimit"}};
    NumberField ui_ffa_timelimit{limits, {"ui_ffa_timelimit"}};
    NumberField ui_tourney_fraglimit{limits, {"ui_tourney_fraglimit"}};
    NumberField ui_tourney_timelimit{limits, {"ui_tourney_timelimit"}};
    NumberField ui_team_fraglimit{limits, {"ui_team_fraglimit"}};
    NumberField ui_team_timelimit{limits, {"ui_team_timelimit"}};
    NumberField ui_team_friendly{limits, {"ui_team_friendly"}};
    NumberField ui_ctf_capturelimit{limits, {"ui_ctf_capturelimit"}};
    NumberField ui_ctf_timelimit{limits, {"ui_ctf_timelimit"}};
    NumberField ui_ctf_friendly{limits, {"ui_ctf_friendly"}};

    /// A change by a person that touches more than one field or table.
    Edits edits;

    Rotation maplist;
    BotTable q3botlist;
    BindingTable bindlist;
    /// Position of the game type list that the tab showed before the present change.
    int LastGameType = 0;
    /// Rows of the rotation that the present load has read.
    std::int16_t MapCount = 0;

    /// All groups, in the order of the tabs; those of the tabs bear the keys of the tabs.
    std::array<FieldGroup*, 7> groups();
    /// From now on the change of a field marks the document as changed.
    void markChanges(RunState& run);
    /// Puts everything back to what it was before any document; the tables are emptied.
    void restoreDesign();
};

}  // namespace gatehouse
