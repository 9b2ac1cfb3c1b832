#pragma once

#include "base/command_flags.h"
#include "base/room.h"
#include "base/run_state.h"
#include "platform/ground.h"
#include "platform/pace.h"
#include "platform/services.h"
#include "startup/event_log.h"
#include "startup/findq3a.h"
#include "startup/option_store.h"
#include "startup/options.h"
#include "startup/views.h"

namespace gatehouse {

/// What the other rooms stand on: the values of the run, the log with the views that it feeds, the options, and the
/// place of the game.
class StartupRoom : public Room {
public:
    explicit StartupRoom(const Services& services);

    RunState run;
    CommandFlags flags;
    OptionsForm options;
    SplashView splash;
    MainView q3;
    EventLog log;
    OptionStore store;
    Pace pace;
    const Ground ground;
    OptionKeeper keeper;
    GameFinder finder;
};

}  // namespace gatehouse
