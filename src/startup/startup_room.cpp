#include "startup/startup_room.h"

namespace gatehouse {

StartupRoom::StartupRoom(const Services& services)
    : log(services.files, services.events, services.clock, run, options, splash, q3),
      store(services.settings, log, services.dialogs),
      pace(services.events, services.clock),
      ground{services.files, services.dialogs, services.events, log, store, run, flags, pace},
      keeper(options, store, log, run),
      finder(ground, splash) {
    has(finder.q3getgame.q3scan);
    restores(q3, splash, keeper);
}

}  // namespace gatehouse
