#pragma once

namespace gatehouse {

struct CommandFlags;
class Dialogs;
class EventLoop;
class Files;
class Log;
class Options;
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
};

}  // namespace gatehouse
