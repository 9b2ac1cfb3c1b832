#pragma once

#include "base/edits.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/settings_document.h"
#include "platform/ground.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// A value of the document that lives outside of `SettingsDocument`, in text form.
struct OutsideValue {
    std::function<std::vector<std::string>()> get;
    std::function<void(const std::vector<std::string>&)> set;
    /// The brackets around its changes, if it has its own.
    Edits* edits = nullptr;
};

/// Undo and redo over what a person changes in the document. A step is one edit with everything that rules changed in
/// its wake; edits of one field that follow each other are one step. What the program writes outside of an edit is
/// never a step.
class EditHistory {
public:
    /// Follows the document from here on.
    EditHistory(const Ground& ground, SettingsDocument& doc);
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;
    ~EditHistory();

    /// What the next undo and the next redo change; empty where there is none.
    Observable<std::string> undoName;
    Observable<std::string> redoName;
    Observable<bool> canUndo{false};
    Observable<bool> canRedo{false};

    /// An undo or a redo has changed the rotation.
    Signal<> rotationRestored;

    /// Follows a value of another room too. To be called before the first edit.
    void addOutside(OutsideValue value);
    /// Takes the changes of a journal into its steps. They are no part of a document: a new history of that keeps them.
    void addJournal(EditJournal& journal);
    void undo();
    void redo();
    /// The document that is there now is the start of a new history.
    void startAnew();

private:
    class Change;
    class Slot;
    template <class T>
    class RowsSlot;
    class JournalSlot;
    struct Step {
        std::string name;
        const Edits* gradual = nullptr;  ///< of the field whose next edit joins this step
        std::vector<std::unique_ptr<Change>> changes;
    };

    void addField(Field& field);
    template <class Row>
    void addTable(
        Table<Row>& table, std::function<void()> restored = [] {});
    void followEdits(Edits& edits, bool gradual = false);
    template <class... Args>
    void markOn(Signal<Args...>& signal, Slot& slot);

    void begin(const Edits* gradual, const std::string& name);
    void end();
    std::vector<std::unique_ptr<Change>> takeChanges();
    /// Takes changes out of all steps: those of one slot, or of all slots but the journals.
    void drop(const Slot* slot);
    void walk(bool back);
    /// Makes the program hold what the slots know. Rules answer to what is set, so it takes more than one pass.
    void restore();
    void tell();

    RunState& run_;
    Log& log_;
    std::vector<std::unique_ptr<Slot>> slots_;
    Connections follow_;
    std::vector<Step> steps_;
    std::size_t done_ = 0;  ///< steps that have not been undone
    std::string name_;      ///< of the edit under way
    const Edits* gradual_ = nullptr;
    int depth_ = 0;
    bool joins_ = false;  ///< nothing has come between the last step and now; there is one then
};

}  // namespace gatehouse
