#pragma once

#include "base/edits.h"
#include "base/field.h"
#include "base/form.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "mods/mod_table.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/ground.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// What edits an option of a mod.
enum class ModEditor { None, Check, Text, List, Number };

/// One option on show, and what its editor starts with.
struct ModField {
    int index = 0;  ///< of the option, from 1
    int row = 0;
    int column = 0;
    ModEditor editor = ModEditor::None;
    std::string caption;
    std::string name;  ///< console variable
    bool checked = false;
    std::string text;
    std::vector<std::string> listitems = {};
    int listIndex = -1;
    std::optional<Range> spin = {};
};

/// A link of the dialog; it is on show unless its target is blank.
struct ModLink {
    std::string target;
    std::string caption;  ///< the target without its scheme
    bool visible = false;
};

/// What the dialog shows while it is up. Sizes are in twips.
struct ModDialogPlan {
    static constexpr int kColumnPitch = 3300;
    static constexpr int kRowPitch = 350;
    static constexpr int kRowsPerColumn = 12;
    static constexpr int kLabelWidth = 1800;
    static constexpr int kEditorWidth = 1300;

    int width = 0;
    int height = 0;
    int optionsTop = 0;  ///< below the title and the lines under it
    std::string modkeys;
    ModLink modurl;
    ModLink modemail;
    std::vector<ModField> fields;  ///< down the first column, then down the next
};

/// The dialog `q3mod`: the options of the current mod, laid out anew at each showing. What is changed in it goes
/// straight into the mod's options.
class ModOptions {
public:
    /// A showing is one change of the document, inside `edits`.
    ModOptions(const Ground& ground, ModTable& mods, Edits& edits);
    ModOptions(const ModOptions&) = delete;
    ModOptions& operator=(const ModOptions&) = delete;

    /// Whether the dialog is on show.
    Form q3mod{"q3mod"};
    /// The title. It runs through its line when there is no room for all of it.
    Observable<std::string> modname;
    /// The choice of a mod asks for the input focus.
    Signal<> modcomboFocusWanted;

    /// Options of the server, and those of the player too where both play here.
    void modoptions_Click();
    /// Shows the options of the server ("S"), of the client ("C") or all ("A"). Returns once the dialog is hidden. A
    /// list whose value names none of its entries shows no selection.
    void showFor(std::string_view letter);
    void modclose_Click() { q3mod.set(false); }

    const ModDialogPlan& plan() const { return plan_; }
    std::int16_t modShownCount() const { return modShownCount_; }
    /// True while the dialog is built; what an editor tells meanwhile is not heard.
    bool modDialogBuilding() const { return modDialogBuilding_; }

    /// To be told once the dialog is built: how wide the title is, and how wide the dialog.
    void modnameMeasured(int width, int dialogWidth);

    // What a person does to the editor of an option.
    void mcheckbox_Click(int index, bool checked);
    void mlistbox_Click(int index, int listIndex);
    /// False if the option needs a number and the text is none: the focus goes back to the box.
    bool mtextbox_Change(int index, const std::string& text);

private:
    void q3mod_Activate();
    bool shows(const ModOption& option) const;
    std::int16_t countShown(const ModEntry& mod) const;
    std::string summary(const ModEntry& mod, int shown) const;
    void layOutHeader(const ModEntry& mod);
    void addFields(const ModEntry& mod);
    void mtimer_Timer();
    ModOption& option(int index);
    void store(int index, std::string value);

    ModTable& mods_;
    RunState& run_;
    Edits& edits_;
    Dialogs& dialogs_;
    Log& log_;
    EventLoop& events_;
    std::string Tag_;
    ModDialogPlan plan_;
    std::int16_t modShownCount_ = 0;
    bool modDialogBuilding_ = false;
    std::unique_ptr<Timer> mtimer_;
    Connection hidden_;
};

}  // namespace gatehouse
