#pragma once

#include "base/command_flags.h"
#include "base/form.h"
#include "base/log.h"
#include "base/run_state.h"
#include "config/settings_document.h"
#include "content/model_catalog.h"
#include "platform/dialogs.h"
#include "platform/ground.h"
#include "servers/server_entry.h"
#include "servers/server_undo.h"
#include "window/rules/key_rules.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// What the reset acts on. All of it outlives the reset.
struct TabResetParts : Ground {
    SettingsDocument& doc;
    ServerTable& iplist;
    ServerUndo& undo;
    const ModelCatalog& models;
    KeyRules& keys;
    const Observable<std::string>& TabKey;
    /// Selects the model of that path, and shows the choice.
    std::function<void(const std::string&)> selectModel;
};

/// Puts the fields of one tab, or of all tabs, back to their initial values.
class TabReset {
public:
    explicit TabReset(TabResetParts parts);
    TabReset(const TabReset&) = delete;
    TabReset& operator=(const TabReset&) = delete;

    /// The dialog that asks whether all tabs are meant or the current one.
    Form q3resetprompt{"q3resetprompt"};
    void mtoolsreset_Click() { q3resetprompt.set(true); }
    /// What follows a button of the dialog: "current", "all", or nothing for a cancel.
    void chooseReset(std::string_view word);
    /// Resets "all" tabs, once the user agrees, or the one of this key. A tab without settings does nothing.
    void ResetTabs(std::string_view what);

private:
    /// A field and its initial value in text form.
    struct FieldValue {
        Field& field;
        std::string value;
    };
    struct Tab {
        std::string_view key;
        std::string_view name;  ///< empty if its reset has a log line of its own
        std::function<void()> before;
        std::vector<FieldValue> values;
    };

    static std::vector<FieldValue> serverValues(SettingsDocument& doc);
    static std::vector<FieldValue> playerValues(SettingsDocument& doc);
    static std::vector<FieldValue> videoValues(SettingsDocument& doc);
    static std::vector<FieldValue> tweak1Values(SettingsDocument& doc);
    static std::vector<FieldValue> tweak2Values(SettingsDocument& doc);

    void resetTab(const Tab& tab);
    void clearServers();
    void clearKeys();
    void clearMaps();
    void selectFirstModel();

    TabResetParts parts_;
    std::vector<Tab> tabs_;  ///< in the order of a reset of all
};

}  // namespace gatehouse
