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
    TextField q3hostname{
        server, {"q3hostname", "Hostname:", "What the world will call your server. Make it worth remembering."}};
    ListField modcombo{server, {"modcombo", "Mod:"}};
    ListField q3gametype{server, {"q3gametype", "Game Type:"}};
    LabelField fraglabel{server, {.name = "fraglabel", .caption = "Limit:", .marksDocument = false}, "Frags:"};
    TextField fraglimit{server,
                        {"fraglimit", "Frag Limit:", "First to this many wins. Captures instead of frags in CTF."},
                        "20",
                        Range{5, 200, 5}};
    TextField timelimit{server,
                        {"timelimit", "Time Limit:", "Minutes until somebody wins whether they like it or not."},
                        "20",
                        Range{5, 180, 5}};
    CheckField dowarmup{server,
                        {"dowarmup", "Always Warmup:",
                         "If on, warmup applies to all game types. If off, warmup is only for team/ctf games", false}};
    TextField warmup{server,
                     {"warmup", "Warmup:", "Seconds to run around shooting people before it counts."},
                     "",
                     Range{0, 600, 10}};
    CheckField fgame{server,
                     {"fgame", "Friendly Fire:", "If ticked, you can shoot your own team. Watch how many say sorry."}};
    CheckField forcebalance{
        server, {"forcebalance", "Force Balance:", "Nobody gets to join the team that is already winning by numbers."}};
    CheckField autojoin{
        server, {"autojoin", "Auto-Join Team:", "Puts people on a team as they arrive, before they can be choosy."}};
    TextField q3playerlimit{server,
                            {"q3playerlimit", "Players:", "How many can play at once. Your bandwidth may disagree."},
                            "",
                            Range{1, 64, 1}};
    TextField q3minplayers{server, {"q3minplayers", "Min Players:"}, "", Range{0, 32, 1}};
    CheckField q3usepass{server, {"q3usepass", "Client Pass:"}};
    TextField q3serverpass{server, {"q3serverpass", "Client Password:"}};
    CheckField q3userconpass{server, {"q3userconpass", "RCon Pass:"}};
    TextField q3rconpass{server, {"q3rconpass", "RCon Password:"}};
    TextField q3motd{server, {"q3motd", "Message:", "Shown to people while they connect. Some even read it."}};
    CheckField q3allowvote{
        server, {"q3allowvote", "Voting:", "Lets the players vote on maps and kicks. Democracy, more or less."}};
    CheckField q3pure{server,
                      {"q3pure", "Pure Server:",
                       "If ticked, players can't join with custom models, skins etc. Only really for competition "
                       "servers."}};
    CheckField sv_allowdownload{server,
                                {"sv_allowdownload", "Allow D/L:",
                                 "Lets players fetch what they lack from you. Slowly. Needs a pure server.", false}};
    CheckField q3langame{server,
                         {"q3langame", "LAN Game:",
                          "If ticked, the server won't attempt to report it's existence to the id master server."}};
    CheckField q3cheats{server, {"q3cheats", "Cheats:"}};
    CheckField q3clientsync{
        server,
        {"q3clientsync", "Sync Clients:", "Only tick this if you are trying to record demos. Otherwise leave it off."}};
    TextField q3quadfactor{
        server,
        {"q3quadfactor", "Quad Factor:", "How much the quad amplifies damage: 1 = No Quad Effect. 3 = Standard Quad."},
        "",
        Range{1, 5, 1}};
    TextField q3weaptime{server,
                         {"q3weaptime", "Weap Time:", "Seconds until a weapon comes back after someone grabbed it."},
                         "5",
                         Range{5, 180, 5}};
    TextField sv_minping{server, {"sv_minping", "Min Ping:"}};
    TextField sv_maxping{server, {"sv_maxping", "Max Ping:", "Keep those lagged-out turkeys off your server."}};
    TextField q3caprate{server,
                        {"q3caprate", "RateCap:", "Most bytes/sec that any one player may take from you. 0 = no cap."}};
    TextField q3hunksize{server, {"q3hunksize", "Hunk Size:"}, "56", Range{64, 256, 16}};
    TextField q3serverip{server,
                         {"q3serverip", "IP Address:",
                          "If your server has more than one network card, but you only want it to use one of them, "
                          "put it's address here. Normally blank."}};
    TextField q3serverport{server, {"q3serverport", "Port:", "What UDP port your server listens on. Default is 27960"}};

    FieldGroup bots{"bots"};
    CheckField q3randbots{bots, {"q3randbots", "Random Bots:"}};
    TextField q3randnum{bots, {"q3randnum", "How Many:"}, "1", Range{0, 64, 1}};
    TextField q3randskill{bots, {"q3randskill", "Skill:"}, "1", Range{1, 5, 1}};
    CheckField q3bot_nochat{bots, {"q3bot_nochat", "Quiet Bots:", "Bots keep their opinions to themselves."}};
    CheckField q3botfastchat{bots,
                             {"q3botfastchat", "Fast Chat:", "Bots type faster than any human. You have been warned."}};
    CheckField q3botrjump{
        bots, {"q3botrjump", "Rocket Jump:", "Bots may blow themselves up to get to higher places. Like you do."}};

    FieldGroup player{"player"};
    TextField q3playername{
        player,
        {"q3playername", "Name:", "Create colored names by using the caret (^) followed by a number from 1 to 7."}};
    LabelField currmodel{player, {"currmodel", "Model/Skin:"}, "Sarge/Default"};
    CheckField q3sexmale{player, {"q3sexmale", " Male:"}, 1};
    CheckField q3sexfemale{player, {"q3sexfemale", " Female:"}};
    TextField q3handicap{player, {"q3handicap", "Handicap:"}, "", Range{5, 100, 5}};
    LabelField q3fxcolor{player, {"q3fxcolor", "FX Colour:"}, "1", Range{1, 7, 1}};
    LabelField chindex{player, {"chindex", "Crosshair:"}, "0", Range{0, 10, 1}};
    CheckField cg_autoswitch{player,
                             {"cg_autoswitch", "Autoswitch:", "Picks up a gun and uses it at once, wise or not."}};

    FieldGroup video{"video"};
    ListField q3vidres{video,
                       {"q3vidres", "Resolution:",
                        "Video mode. If you pick something that your card can't do, the game will run at 640x480."},
                       {"320x240", "400x300", "512x384", "640x480", "800x600", "960x720", "1024x768", "1152x864",
                        "1280x1024", "1600x1200", "2048x1536", "856x480 (Wide)"}};
    CheckField q3fullscreen{
        video, {"q3fullscreen", "Fullscreen:", "Untick this to play in a window, with your boss in mind."}};
    CheckField q3GLext{
        video, {"q3GLext", "GL Extensions:", "The fancy parts of your video driver. Untick if it falls over a lot."}};
    ListField q3colordepth{video, {"q3colordepth", "Color Depth:"}, {"Default", "16-Bit", "32-Bit"}};
    ListField q3texquality{video,
                           {"q3texquality", "Texture Quality:", "Bits per texel. More looks better and costs memory."},
                           {"Default", "16-Bit", "32-Bit"}};
    SliderField q3texdetail{video,
                            {"q3texdetail", "Texture Detail:", "All the way left for porridge, right for wallpaper."},
                            {0, 3, 1, 1},
                            0};
    ListField q3geometry{
        video, {"q3geometry", "Geometry Detail:", "How round the round things are. Low is faster."}, {"Low", "High"}};
    ListField q3lighting{video,
                         {"q3lighting", "Lighting:", "Lightmap looks right. Vertex looks wrong, but in a hurry."},
                         {"Lightmap", "Vertex"}};
    SliderField q3brightness{video, {"q3brightness", "Brightness:"}, {50, 200, 10, 25}, 50};
    SliderField q3screensize{video, {"q3screensize", "Screen Size:"}, {0, 100, 10, 10}, 0};
    CheckField r_depthbits{
        video,
        {"r_depthbits", "32-Bit Z Buffer:", "If you enable this, then hidden surface removal will be more accurate."}};
    CheckField q3trilinear{
        video,
        {"q3trilinear", "Trilinear:", "Smears the lines on the floor where texture sizes meet. Costs a little."}};
    CheckField q3syncframe{
        video, {"q3syncframe", "Sync Frames:", "Waits for the card to finish each frame. Cures a mouse that lags."}};
    CheckField q3dynamiclight{
        video, {"q3dynamiclight", "Dynamic Light:", "Rockets light up the corridor. Handy, if you see them coming."}};
    CheckField q3fastsky{
        video, {"q3fastsky", "Fast Sky:", "Swaps the sky for one plain colour. You weren't looking up anyway."}};
    CheckField q3simpleitems{
        video, {"q3simpleitems", "Simple Items:", "Flat pictures instead of models. Ugly, quick, easy to spot."}};
    CheckField q3wallmarks{
        video, {"q3wallmarks", "Wall Marks:", "Bullet holes and scorch marks, for those who admire their own work."}};
    CheckField q3brass{video, {"q3brass", "Eject Brass:", "Empty shells on the floor. Nobody sweeps them up."}};
    CheckField q3forcemodels{video,
                             {"q3forcemodels", "Force Models:",
                              "If this is checked, then your game will ignore people's model settings and make "
                              "everyone look like Sarge. This is good if you are getting sick of the little 'freezes' "
                              "caused by model loading."}};

    FieldGroup tweak1{"tweak1"};
    TextField sensitivity{
        tweak1, {"sensitivity", "Mouse Speed:", "Default is 5, I play at 12, some freaks go to 30. Whatever."}};
    CheckField cl_mouseaccel{
        tweak1, {"cl_mouseaccel", "Mouse Accel:", "The faster you move it, the further it goes. An acquired taste."}};
    CheckField m_filter{tweak1,
                        {"m_filter", "Mouse Filter:", "Smooths the mouse by averaging. Also smooths your reactions."}};
    CheckField invertmouse{tweak1, {"invertmouse", "Invert"}};
    CheckField cl_run{tweak1, {"cl_run", "Always Run:", "Walking is for people who like being shot."}};
    TextField com_maxfps{
        tweak1,
        {"com_maxfps", "Max FPS:", "The system won't ever exceed the FPS set here. Can make gameplay more consistent."},
        "",
        Range{10, 200, 10}};
    TextField q3rate{tweak1,
                     {"q3rate", "Data Rate:", "Basically the speed in bytes/sec of your net connection."},
                     "",
                     Range{2500, 25000, 500}};
    SliderField q3snaps{tweak1, {"q3snaps", "Snapshots:"}, {1, 30, 1, 5}, 1};
    CheckField cl_motd{tweak1, {"cl_motd", "Use ID motd:", "Fetches the message of the day while you connect."}};
    TextField cg_fov{tweak1,
                     {"cg_fov", "Normal FOV:", "Degrees you see at once. Above 120 your lunch may come back."},
                     "",
                     Range{1, 360, 5}};
    TextField cg_zoomfov{tweak1,
                         {"cg_zoomfov", "Zoomed FOV:", "Degrees you see while zoomed. Smaller gets you closer."},
                         "",
                         Range{1, 360, 5}};
    ListField cg_shadows{tweak1, {"cg_shadows", "Shadows:"}, {"None", "Simple", "Stencil", "Simple Stencil"}};
    CheckField r_flares{tweak1,
                        {"r_flares", "Draw Light Flares:", "Glow around lights, as if you wore dirty glasses."}};
    CheckField r_preloadtextures{
        tweak1, {"r_preloadtextures", "Preload Textures:", "Loads it all before the game begins, not in mid-jump."}};
    CheckField r_detailtextures{
        tweak1, {"r_detailtextures", "Detail Textures:", "Extra grain on surfaces seen from very near."}};
    CheckField r_smp{tweak1, {"r_smp", "Use 2nd CPU:", "Only if you have one. If in doubt, you don't."}};
    CheckField cg_draw2d{tweak1, {"cg_draw2d", "Draw 2D:"}};
    CheckField q3identifytarget{
        tweak1, {"q3identifytarget", "Identify Target:", "Shows the name of whoever you point at, before the end."}};
    CheckField q3teamoverlay{tweak1, {"q3teamoverlay", "Team Overlay:"}};
    CheckField q3soundquality{
        tweak1, {"q3soundquality", "High Quality Sound:", "22 kHz instead of 11. More memory, crisper screams."}};
    CheckField q3a3d{tweak1, {"q3a3d", "A3D 3D Sound:", "For sound cards that can do it. Ears at the back, too."}};
    SliderField q3effectsvol{tweak1, {"q3effectsvol", "Effects Vol:"}, {0, 100, 10, 30}, 0};
    SliderField q3musicvol{tweak1, {"q3musicvol", "Music Vol:"}, {0, 100, 10, 30}, 0};

    FieldGroup tweak2{"tweak2"};
    TextField cg_crosshairsize{tweak2, {"cg_crosshairsize", "Crosshair Size:"}};
    TextField cg_crosshairx{
        tweak2, {"cg_crosshairx", "X offset:", "Moves the crosshair sideways. Your shots won't follow it."}};
    TextField cg_crosshairy{tweak2, {"cg_crosshairy", "Y offset:"}};
    TextField r_railwidth{tweak2, {"r_railwidth", "Rail Width:"}};
    TextField r_railcorewidth{tweak2, {"r_railcorewidth", "Rail Core Width:"}};
    TextField r_railsegmentlength{tweak2, {"r_railsegmentlength", "Segment Length:"}};
    TextField cg_railtrailtime{
        tweak2,
        {"cg_railtrailtime", "Rail Trail Time:", "How long Railgun trails stay visible. Try 10000000 for a fun time."},
        "",
        Range{0, 50000, 100}};
    CheckField cg_drawgun{tweak2, {"cg_drawgun", "Draw Gun:", "Your own gun on the screen. It fires without, too."}};
    CheckField cg_gibs{tweak2, {"cg_gibs", "Draw Gibs:", "Bits of people. Untick for a tidier arena."}};
    CheckField com_blood{tweak2, {"com_blood", "Draw Blood:"}};
    CheckField r_drawsun{tweak2, {"r_drawsun", "Draw the Sun:", "On maps that have one. Most are gloomy on purpose."}};
    CheckField drawicons{
        tweak2, {"drawicons", "Draw Any Icons:", "All the little pictures in the status bar, or none of them."}};
    CheckField cg_draw3dicons{
        tweak2, {"cg_draw3dicons", "Draw 3D Icons:", "Icons that turn round. Flat ones are a touch quicker."}};
    CheckField cg_drawstatus{
        tweak2,
        {"cg_drawstatus", "Show Player Health/Armor:", "How much of you is left. Ignorance is not bliss here."}};
    CheckField cg_drawtimer{tweak2, {"cg_drawtimer", "Show Timer:", "How long you have been losing, to the second."}};
    CheckField cg_drawfps{tweak2, {"cg_drawfps", "Show FPS:", "Frames per second. For boasting, or for sulking."}};
    CheckField cg_drawsnapshot{
        tweak2, {"cg_drawsnapshot", "Show Snapshots:", "Counts what the server sends you. Mostly a curiosity."}};
    CheckField cg_drawammowarning{
        tweak2, {"cg_drawammowarning", "Ammo Warning:", "Says LOW AMMO shortly before you find out yourself."}};
    CheckField cg_drawattacker{
        tweak2, {"cg_drawattacker", "Show Attacker:", "Shows the face of whoever hit you last. Remember it."}};
    CheckField cg_drawrewards{
        tweak2, {"cg_drawrewards", "Show Rewards:", "The medals. Impressive, excellent, or a bare screen."}};
    CheckField cg_lagometer{tweak2,
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
