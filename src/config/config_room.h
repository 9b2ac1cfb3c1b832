#pragma once

#include "base/room.h"
#include "base/signal.h"
#include "config/edit_history.h"
#include "config/filescfg.h"
#include "config/settings_document.h"
#include "platform/ground.h"

namespace gatehouse {

/// The document with its files and its history.
class ConfigRoom : public Room {
public:
    /// `ghcdir` holds the folder of the documents, `q3overwrite` whether a save asks before it replaces a file.
    ConfigRoom(const Ground& ground, DocumentHost& host, const TextField& ghcdir, const ListField& q3overwrite);

    SettingsDocument doc;
    ConfigDocuments documents;
    EditHistory history;

private:
    Connections follow_;
};

}  // namespace gatehouse
