#include "config/config_room.h"

namespace gatehouse {

ConfigRoom::ConfigRoom(const Ground& ground, DocumentHost& host, const TextField& ghcdir, const ListField& q3overwrite)
    : documents({ground, doc, host, ghcdir, q3overwrite}), history(ground, doc) {
    doc.markChanges(ground.run);
    follow_.on(documents.loaded, [this] { history.startAnew(); });
    restores(doc);
}

}  // namespace gatehouse
