#include "launch/command_line.h"

#include "base/text.h"

namespace gatehouse {

void CommandLine::begin(const std::string& gameProgram, const std::string& extracmdline) {
    run_.LaunchCommand = gameProgram + " " + trim(extracmdline);
}

void CommandLine::BuildServerCommandLine() {
    log_.logEvent("->building server cmdline");
    if (run_.CurrentMode.get() == kDedicated) append("set dedicated", doc_.q3langame.value() == 1 ? "1" : "2");
    append("set com_hunkmegs", doc_.q3hunksize.text());
    if (!trim(doc_.q3serverip.text()).empty()) append("set net_ip", doc_.q3serverip.text());
    append("set net_port", doc_.q3serverport.text());
    appendConfig();
    log_.logEvent("--> cmdline = " + run_.LaunchCommand);
}

// A listen server runs both routines, so that its config is carried out twice. That is meant.
void CommandLine::BuildClientCommandLine() { appendConfig(); }

void CommandLine::connectTo(const std::string& address) { append("connect", address); }

void CommandLine::append(const std::string& option, const std::string& value) {
    run_.LaunchCommand += " +" + option + " " + value;
}

void CommandLine::appendConfig() {
    append("set fs_game", mods_.current().dir);
    append("exec", "gatehouse.cfg");
}

}  // namespace gatehouse
