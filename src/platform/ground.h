#pragma once

namespace gatehouse {

struct CommandFlags;
class Dialogs;
class EventLoop;
class Files;
class Log;
class Options;
class Pace;
struct RunState;

/// What nearly every class of the program stands on. All of it outlives them.
struct Ground {
    Files& files;
    Dialogs& dialogs;
    EventLoop& events;
    Log& log;
    Options& options;
    RunState& run;
    CommandFlags& flags;
    Pace& pace;
};

}  // namespace gatehouse
