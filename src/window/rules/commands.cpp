#include "window/rules/commands.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>

namespace gatehouse {

namespace {

// Each menu in its order, then the tabs, then the forms.
constexpr CommandInfo kCommands[] = {
    {"mfileopen", "File", "&Open...", "Ctrl+O", "Open a settings document", "open", "Open"},
    {"mfilesave", "File", "&Save...", "Ctrl+S", "Save the settings", "save", "Save"},
    {"mfilerun", "File", "&Run", "Ctrl+R; F5", "Start the game with these settings", "run", "Run"},
    {"mfileexit", "File", "E&xit", "Ctrl+Q", "Leave; what has changed is asked about first"},
    {"mserversrefresh", "Servers", "&Refresh All", "Shift+F5", "Ask every server of the list at once", "refresh"},
    {"mserversselected", "Servers", "Refresh &Selected", "Ctrl+F5", "Ask the selected servers at once", "refresh"},
    {"mserversstop", "Servers", "S&top", "Ctrl+.", "End the refresh; what was answered stays", "stop"},
    {"mserversfind", "Servers", "&Find Servers...", "Ctrl+G", "Look for servers in the net and nearby", "servers"},
    {"meditundo", "Edit", "&Undo", "Ctrl+Z", "Take back the last change", "undo"},
    {"meditredo", "Edit", "&Redo", "Ctrl+Shift+Z; Ctrl+Y", "Make the change again", "redo"},
    {"mtoolsconsole", "Tools", "&Console", "F12", "Show or hide what the program says while it works"},
    {"mtoolsresults", "Tools", "&Benchmark Results...", "",
     "Look at the runs of the benchmark and hold them against each other", "results"},
    {"mtoolsreset", "Tools", "&Reset Tabs...", "",
     "Put the settings of this tab, or of all tabs, back to what they were at first", "reset", "Reset"},
    {"mtoolsoptions", "Tools", "&Options...", "", "Options of the program itself", "options", "Options"},
    {"mhelpcontents", "Help", "&Contents", "F1", "Open the help window", "help", "Help"},
    {"mhelpwhat", "Help", "&What's This?", "Shift+F1", "Then click a control to read what it is"},
    {"mhelpover", "Help", "O&verview", "", "Show in this window what comes first"},
    {"mhelpabout", "Help", "&About...", "", "Version, folder and licence of this program", "about"},

    {"sbar1", "sbar", "Connect", "Ctrl+1", "Join a server", "mode-connect"},
    {"sbar2", "sbar", "Listen", "Ctrl+2", "Host a game and play in it", "mode-listen"},
    {"sbar3", "sbar", "Dedicated", "Ctrl+3", "Host a game and stay out of it", "mode-dedicated"},
    {"sbar4", "sbar", "Benchmark", "Ctrl+4", "Play demos and measure", "mode-benchmark"},
    {"sbariconlarge", "sbar", "&Large Icons", "", "The side bar's pictures stand above their names"},
    {"msiconsmall", "sbar", "&Small Icons", "", "They stand in front of them"},

    {"modoptions", "server", "Mod &Options...", "", "Settings of the chosen mod itself"},

    {"tbservers.Join", "servers", "Join", "Return; Enter", "Start the game with this server", "run"},
    {"tbservers.Edit", "servers", "Edit...", "F2", "Change address and password (or double-click)"},
    {"tbservers.Copy", "servers", "Copy Address", "Ctrl+C", "Put the addresses of these servers on the clipboard"},
    {"tbservers.Paste", "servers", "Paste Address", "Ctrl+V", "Add the servers whose addresses are on the clipboard"},
    {"tbservers.Favourite", "servers", "Favourite", "Ctrl+D", "Mark these servers as favourites, or take that away",
     "favourite"},
    {"tbservers.Passwords", "servers", "Show Passwords", "", "Show the passwords in the list, or hide them", "eye"},
    {"clearfilter", "servers", "Clear", "Esc", "Show all servers again"},
    {"morefilters", "servers", "More", "", "Show or hide the other filters"},
    {"tbservers.Add", "servers", "Add", "Ins", "Add a server", "add"},
    {"tbservers.Delete", "servers", "Delete", "Del", "Delete this server", "remove"},
    {"tbservers.Query", "servers", "Query", "Ctrl+E", "Ping server/s", "query"},
    {"tbservers.Players", "servers", "Players", "Ctrl+L", "List players", "players"},
    {"tbservers.Mod", "servers", "Mod", "", "Mod options for this server", "options"},
    {"tbservers.Open", "servers", "Open", "", "Open server list", "open"},
    {"tbservers.Save", "servers", "Save", "", "Save server list", "save"},
    {"tbservers.scan", "servers", "Scan", "", "Query master server", "servers"},

    {"mtool3_2", "maps", "Scan...", "Ctrl+Shift+F", "Search the game's archives for maps", "scan"},
    {"mtool3_3", "maps", "Add File...", "Ctrl+Ins", "Put a map from a file or an archive into this list", "add-file"},
    {"mtool3_4", "maps", "Delete", "Del", "Take a user map off this list", "delete"},
    {"zoom", "maps", "Zoom Picture", "Ctrl++; Ctrl+=", "A larger picture of the map, or the smallest again", "zoom"},
    {"hidePicture", "maps", "Hide Picture", "Esc", "The picture beside the window goes", "remove"},
    {"mtool2_2", "maps", "Add", "Ins", "Put the map into the rotation", "add"},
    {"mtool2_1", "maps", "Remove", "Del", "Take the map out of the rotation", "remove"},
    {"mtool1_1", "maps", "Up", "Alt+Up", "Play the map earlier", "move-up"},
    {"mtool1_2", "maps", "Down", "Alt+Down", "Play the map later", "move-down"},

    {"ptool1_1", "player", "Scan...", "Ctrl+Shift+F", "Search the game's archives for models", "scan"},

    {"choosekey", "keys", "&Choose Key...", "",
     "Pick a key for the chosen action on a keyboard (Return or double-click)", "keys"},

    {"q3botadd", "bots", "Add...", "Ins", "Choose a bot that joins", "add"},
    {"q3botdel", "bots", "Delete", "Del", "Take the bot off the list", "remove"},

    {"play", "benchmark", "Play", "", "Run the chosen documents on the chosen demos", "play"},
    {"pause", "benchmark", "Pause", "", "Hold up the stale time; the game plays on", "pause"},
    {"stop", "benchmark", "Stop", "", "End the run; the game plays on", "stop"},

    {"back", "help", "Back", "Alt+Left", "The page before", "back"},
    {"forward", "help", "Forward", "Alt+Right", "The page that you came back from", "forward"},
    {"expand", "help", "Window", "", "Read on in a window of its own, with contents and search", "expand"},
    {"home", "help", "Home", "Alt+Home", "The first page", "home"},

    {"newipOK", "q3newip", "OK", "", "Take the address"},
    {"newipCancel", "q3newip", "Cancel", "", "Leave the list as it is"},
    {"plistrefresh", "q3players", "&Refresh", "F5", "Ask the server again"},
    {"plistclose", "q3players", "&Close", "", "Close the list"},
    {"findsearch", "q3find", "&Search", "", "Look for servers"},
    {"findstop", "q3find", "S&top", "", "End the search; what was found stays"},
    {"findadd", "q3find", "&Add to List", "", "Take the selected servers into your list"},
    {"findclose", "q3find", "&Close", "", "Close the window"},
    {"pakOK", "q3pakmaps", "OK", "", "Add the chosen map"},
    {"pakcancel", "q3pakmaps", "Cancel", "", "Add none"},
    {"newbotOK", "q3newbot", "OK", "", "Add the bot"},
    {"newbotcancel", "q3newbot", "Cancel", "", "Add none"},
    {"modclose", "q3mod", "&Close", "", "Done; each option was taken as you changed it"},
    {"q3resetcurrent", "q3resetprompt", "C&urrent", "", "Reset the tab on show"},
    {"q3resetall", "q3resetprompt", "&All", "", "Reset all tabs"},
    {"q3resetcancel", "q3resetprompt", "Cancel", "", "Reset nothing"},
    {"wretry", "waitwindow", "&Retry", "", "Play the demo again"},
    {"wnext", "waitwindow", "&Next", "", "Go on with the next iteration"},
    {"copyresults", "q3results", "&Copy Table", "", "Put the figures on the clipboard, to be pasted into a table"},
    {"saveresults", "q3results", "&Save As...", "", "Write the figures or the chart to a file"},
    {"resultsclose", "q3results", "C&lose", "", "Close the window; the runs are kept"},
    {"q3GetFile", "q3options", "&Browse...", "", "Choose the game's program"},
    {"ghcdirBrowse", "q3options", "Br&owse...", "", "Choose the folder of the documents"},
    {"editscripts", "q3options", "View &Scripts", "", "Shows the file of the script aliases"},
    {"viewerr", "q3options", "View &Errors", "", "Shows the log of this run"},
    {"q3resetdefaults", "q3options", "Reset &Defaults", "",
     "Writes default.ghc anew, with the values that every setting has at first"},
    {"unregister", "q3options", "&Reset Registry", "", "Takes all of these options away and ends the program"},
    {"optionsOK", "q3options", "OK", "", "Close; each option is kept as soon as it is changed"},
    {"Hlink1", "q3about", "&Home page", "", "Opens the page of this program in your browser"},
    {"Hlink2", "q3about", "&Licence", "", "Shows under which terms this program may be used"},
    {"q3aboutfolder", "q3about", "&Program folder", "", "Opens the folder of this program's files"},
    {"q3aboutOK", "q3about", "OK", "", "Close"},
    {"scanstop", "scan", "&Stop", "Esc", "End the search and keep what was found"},
};

constexpr ListInfo kLists[] = {{"iplist", "servers"},       {"maptree", "maps"},      {"maplist", "maps"},
                               {"mdltree", "player"},       {"bindlist", "keys"},     {"q3botlist", "bots"},
                               {"configlist", "benchmark"}, {"demolist", "benchmark"}};

constexpr DialogInfo kDialogs[] = {
    {"q3newip", "  New IP Address", "The address of a server, and the password that it asks for."},
    {"q3players", "Players", "Who plays on the server, with frags and ping."},
    {"q3find", "Find Servers", "Servers of the net, by master servers, and of the local network.", "mserversfind"},
    {"q3getgame", "Looking for Quake 3", "The search of all disks for the game. Each copy found is asked about."},
    {"q3getmods", "Looking for Mods",
     "The search for mods in the game's folder. It comes up only if it takes a while."},
    {"q3mod", "Mod Options", "What the chosen mod can be told, by its own definition file."},
    {"q3pakmaps", "Maps in the Archive", "The maps of an archive that holds several: choose one."},
    {"q3getmaps", "Looking for Maps", "The search of the game's archives for maps."},
    {"q3getmdl", "Looking for Models", "The search of the game's archives for models and skins."},
    {"q3keyboard", "Choose a Key", "A keyboard and a mouse. Press the key that the action shall have."},
    {"q3newbot", "Add Bot", "A bot by name, its skill and its team."},
    {"waitwindow", "No Results",
     "The game has told no result in time. After fifteen seconds the stale action is taken by itself."},
    {"q3results", "Benchmark Results", "Every run of the benchmark, its figures, and what they say.", "mtoolsresults"},
    {"q3resetprompt", "Reset Tab/Tabs", "Puts settings back to what they were at first. Undo takes it back.",
     "mtoolsreset"},
    {"q3options", "Options", "Options of the program itself. Each is kept as soon as it is changed.", "mtoolsoptions"},
    {"q3about", "About Gatehouse", "Version, folder and licence of this program.", "mhelpabout"},
    {"q3help", "Gatehouse Help", "These pages, with their contents and a search through all of them.", "mhelpcontents"},
};

}  // namespace

std::string_view CommandInfo::objectName() const {
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos ? name : name.substr(dot + 1);
}

std::string CommandInfo::plainCaption() const {
    std::string text;
    for (const char c : caption)
        if (c != '&') text += c;
    while (text.ends_with('.')) text.pop_back();
    return text;
}

std::span<const CommandInfo> commands() { return kCommands; }
std::span<const ListInfo> lists() { return kLists; }
std::span<const DialogInfo> dialogs() { return kDialogs; }

const CommandInfo& commandInfo(std::string_view name) {
    for (const CommandInfo& one : kCommands)
        if (one.name == name) return one;
    throw RuntimeFailure("There is no command " + std::string(name));
}

const DialogInfo& dialogInfo(std::string_view form) {
    for (const DialogInfo& one : kDialogs)
        if (one.form == form) return one;
    throw RuntimeFailure("There is no window " + std::string(form));
}

}  // namespace gatehouse
