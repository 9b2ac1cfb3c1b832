#pragma once

#include "base/command_flags.h"
#include "base/field.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/options.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "mods/mod_table.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "servers/address_form.h"
#include "servers/filesmisc.h"
#include "servers/players_form.h"
#include "servers/server_entry.h"
#include "servers/server_undo.h"
#include "servers/status_query.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace gatehouse {

/// What the commands of the server list act on. All of it outlives them.
struct ServerCommandParts : Ground {
    Clipboard& clipboard;
    ModTable& mods;
    const TextField& ghcdir;
    ServerTable& iplist;
    ServerLists& lists;
    StatusQuery& query;
    AddressForm& addressForm;
    PlayersForm& playersForm;
    ServerUndo& undo;
};

/// The commands of the Servers tab: its tool bar `tbservers` and its table `iplist`. "The selected row" of a command
/// for one server is the table's current row, also when several are selected.
class ServerCommands {
public:
    explicit ServerCommands(const ServerCommandParts& parts) : parts_(parts) {}

    /// The column that clicks on the header remember, from 0.
    std::int16_t SortColumn = kPingColumn;
    /// A command is at work that takes its time.
    Observable<bool> busy{false};
    /// The table asks for the input focus.
    Signal<> iplistFocusWanted;
    /// The options of the current mod are to be shown, as those of a client.
    Signal<> modOptionsWanted;

    /// Runs the command of the button with this tag; "scan" has none.
    void tbservers_ButtonClick(std::string_view tag);
    /// A click into the table, and every choice of rows in it: mod options are those of one server.
    void iplist_Click();
    /// Selects nothing, which also ends a walk over the selected servers that would go on and on.
    void iplist_Escape();
    /// `column` counts from 0. The remembered column's second click turns the order round.
    void iplist_ColumnClick(int column);
    /// Edits the current server. Its address travels by the clipboard.
    void iplist_DblClick();

    /// Puts back what clicks on the header remember.
    void restoreDesign() { SortColumn = kPingColumn; }

private:
    void Add();
    void Delete();
    void Query();
    void Players();
    void Mod();
    void Open();
    void Save();

    void appendServer();
    void deleteSelected();
    void deleteOneByOne(int count);
    void queryAgain();
    void offerImport(const std::string& path);
    bool anotherFileWanted();
    Answer overwriteAnswer();
    void saveAs(const std::string& name);
    FileDialog listDialog(std::string_view title, std::string_view filter, std::string_view blankName);

    ServerCommandParts parts_;
};

}  // namespace gatehouse
