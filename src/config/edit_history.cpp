#include "config/edit_history.h"

#include "base/numbers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kMostPasses = 8;

void setFieldText(Field& field, const std::string& text) {
    auto* list = dynamic_cast<ListField*>(&field);
    // A list that another value fills may not have the entry yet; it is there in the next pass.
    if (list && strictInt16(text) >= static_cast<int>(list->choices().size())) return;
    field.setValueText(text);
}

}  // namespace

/// What one step has changed in one slot.
class EditHistory::Change {
public:
    virtual ~Change() = default;
    /// Changes what the slot knows, not yet the program; a journal's changes are made at once.
    virtual void apply(bool back) = 0;
    /// The slot, if it is a journal's.
    virtual const Slot* journal() const { return nullptr; }
};

/// One value, or one table, and what it holds as far as the history knows.
class EditHistory::Slot {
public:
    virtual ~Slot() = default;
    /// What has changed since the slot last knew; nothing if nothing has. From now on it knows.
    virtual std::unique_ptr<Change> takeChange() = 0;
    /// True if the program held something else.
    virtual bool restore() = 0;

    bool dirty = true;
    bool polled = false;  ///< doesn't tell of its changes
};

template <class T>
class EditHistory::RowsSlot : public Slot {
public:
    using Rows = std::vector<T>;
    /// `set` gets the rows and the position of the first that differs from what was there, from 0.
    RowsSlot(std::function<Rows()> get, std::function<void(const Rows&, std::size_t first)> set)
        : get_(std::move(get)), set_(std::move(set)), known_(get_()) {}

    std::unique_ptr<Change> takeChange() override {
        dirty = polled;
        Rows now = get_();
        if (now == known_) return nullptr;
        const std::size_t first = firstDifference(now);
        std::size_t same = 0;
        const std::size_t most = std::min(now.size(), known_.size()) - first;
        while (same < most && now[now.size() - 1 - same] == known_[known_.size() - 1 - same]) ++same;
        auto splice = std::make_unique<Splice>(*this, first, middle(known_, first, same), middle(now, first, same));
        known_ = std::move(now);
        return splice;
    }

    bool restore() override {
        dirty = polled;
        const Rows now = get_();
        if (now == known_) return false;
        set_(known_, firstDifference(now));
        return true;
    }

private:
    /// Some rows in the place of others.
    class Splice : public Change {
    public:
        Splice(RowsSlot& slot, std::size_t first, Rows before, Rows after)
            : slot_(slot), first_(first), before_(std::move(before)), after_(std::move(after)) {}
        void apply(bool back) override {
            const Rows& out = back ? after_ : before_;
            const Rows& in = back ? before_ : after_;
            Rows& known = slot_.known_;
            // Rows that something else has changed since stay as they are.
            if (known.size() < first_ + out.size()) return;
            const auto at = known.begin() + static_cast<std::ptrdiff_t>(first_);
            if (known.size() > 1 && !std::equal(out.begin(), out.end(), at)) return;
            known.insert(known.erase(at, at + static_cast<std::ptrdiff_t>(out.size())), in.begin(), in.end());
            slot_.dirty = true;
        }

    private:
        RowsSlot& slot_;
        std::size_t first_;
        Rows before_;
        Rows after_;
    };

    static Rows middle(const Rows& rows, std::size_t first, std::size_t behind) {
        return Rows(rows.begin() + static_cast<std::ptrdiff_t>(first),
                    rows.end() - static_cast<std::ptrdiff_t>(behind));
    }
    std::size_t firstDifference(const Rows& now) const {
        const auto most = static_cast<std::ptrdiff_t>(std::min(now.size(), known_.size()));
        return static_cast<std::size_t>(std::mismatch(now.begin(), now.begin() + most, known_.begin()).first -
                                        now.begin());
    }

    std::function<Rows()> get_;
    std::function<void(const Rows&, std::size_t)> set_;
    Rows known_;
};

/// A journal: its changes walk by themselves, and nothing is compared.
class EditHistory::JournalSlot : public Slot {
public:
    explicit JournalSlot(EditJournal& journal) : journal_(journal) { polled = true; }

    std::unique_ptr<Change> takeChange() override {
        auto walks = journal_.take();
        return walks.empty() ? nullptr : std::make_unique<Walks>(*this, std::move(walks));
    }
    bool restore() override { return false; }

private:
    class Walks : public Change {
    public:
        Walks(const JournalSlot& slot, std::vector<EditJournal::Walk> walks) : slot_(slot), walks_(std::move(walks)) {}
        void apply(bool back) override {
            if (back)
                for (auto walk = walks_.rbegin(); walk != walks_.rend(); ++walk) (*walk)(true);
            else
                for (const auto& walk : walks_) walk(false);
        }
        const Slot* journal() const override { return &slot_; }

    private:
        const JournalSlot& slot_;
        std::vector<EditJournal::Walk> walks_;
    };

    EditJournal& journal_;
};

EditHistory::EditHistory(const Ground& ground, SettingsDocument& doc) : run_(ground.run), log_(ground.log) {
    for (FieldGroup* group : doc.groups())
        for (Field* field : group->fields) addField(*field);
    addTable(doc.maplist, [this] { rotationRestored.emit(); });
    addTable(doc.q3botlist);
    addTable(doc.bindlist);
    followEdits(doc.edits);
}

EditHistory::~EditHistory() = default;

void EditHistory::addField(Field& field) {
    using Texts = std::vector<std::string>;
    slots_.push_back(std::make_unique<RowsSlot<std::string>>(
        [&field] { return Texts{field.valueText()}; },
        [&field](const Texts& texts, std::size_t) { setFieldText(field, texts.front()); }));
    markOn(field.changed, *slots_.back());
    // What is typed comes letter by letter, and a slider step by step.
    const bool gradual = field.kind() == Field::Kind::Text || field.kind() == Field::Kind::Slider;
    followEdits(field.edits, gradual);
    follow_.on(field.left, [this] { joins_ = false; });
}

void EditHistory::addOutside(OutsideValue value) {
    if (value.edits) followEdits(*value.edits);
    slots_.push_back(std::make_unique<RowsSlot<std::string>>(
        std::move(value.get),
        [set = std::move(value.set)](const std::vector<std::string>& texts, std::size_t) { set(texts); }));
    slots_.back()->polled = true;
}

void EditHistory::addJournal(EditJournal& journal) {
    followEdits(journal.edits);
    slots_.push_back(std::make_unique<JournalSlot>(journal));
    follow_.on(journal.forgotten, [this, slot = slots_.back().get()] { drop(slot); });
}

template <class Row>
void EditHistory::addTable(Table<Row>& table, std::function<void()> restored) {
    slots_.push_back(std::make_unique<RowsSlot<Row>>(
        [&table] { return table.rows(); },
        [this, &table, restored = std::move(restored)](const std::vector<Row>& rows, std::size_t first) {
            table.setRows(rows, static_cast<int>(first) + 1);
            run_.ConfigChanged = true;
            restored();
        }));
    Slot& slot = *slots_.back();
    markOn(table.rowInserted, slot);
    markOn(table.rowRemoved, slot);
    markOn(table.rowChanged, slot);
    markOn(table.reset, slot);
    followEdits(table.edits);
}

template <class... Args>
void EditHistory::markOn(Signal<Args...>& signal, Slot& slot) {
    follow_.on(signal, [&slot] { slot.dirty = true; });
}

void EditHistory::followEdits(Edits& edits, bool gradual) {
    follow_.on(edits.begins,
               [this, &edits, gradual](const std::string& name) { begin(gradual ? &edits : nullptr, name); });
    follow_.on(edits.ends, [this] { end(); });
}

void EditHistory::begin(const Edits* gradual, const std::string& name) {
    if (depth_++ > 0) return;
    name_ = name;
    gradual_ = gradual;
    takeChanges();  // not the person's
}

void EditHistory::end() {
    if (--depth_ > 0) return;
    auto changes = takeChanges();
    if (changes.empty()) return;
    const bool joins = joins_ && gradual_ && done_ == steps_.size() && steps_.back().gradual == gradual_;
    steps_.resize(done_);
    if (!joins) steps_.push_back({name_, gradual_, {}});
    std::move(changes.begin(), changes.end(), std::back_inserter(steps_.back().changes));
    done_ = steps_.size();
    joins_ = true;
    tell();
}

std::vector<std::unique_ptr<EditHistory::Change>> EditHistory::takeChanges() {
    std::vector<std::unique_ptr<Change>> changes;
    for (const auto& slot : slots_) {
        if (!slot->dirty) continue;
        if (auto change = slot->takeChange()) changes.push_back(std::move(change));
    }
    return changes;
}

void EditHistory::undo() {
    if (done_ > 0) walk(true);
}

void EditHistory::redo() {
    if (done_ < steps_.size()) walk(false);
}

void EditHistory::walk(bool back) {
    if (depth_ > 0) return;
    takeChanges();
    Step& step = steps_[back ? --done_ : done_++];
    if (back) {
        for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) (*change)->apply(true);
    } else {
        for (const auto& change : step.changes) change->apply(false);
    }
    restore();
    joins_ = false;
    log_.logEvent((back ? "undid " : "redid ") + step.name);
    tell();
}

void EditHistory::restore() {
    ++depth_;
    for (int pass = 0; pass < kMostPasses; ++pass) {
        bool changed = false;
        for (const auto& slot : slots_)
            if (slot->dirty) changed |= slot->restore();
        if (!changed) break;
    }
    --depth_;
}

void EditHistory::startAnew() {
    takeChanges();
    drop(nullptr);
}

void EditHistory::drop(const Slot* slot) {
    std::vector<Step> kept;
    std::size_t done = 0;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        Step& step = steps_[i];
        std::erase_if(step.changes, [slot](const auto& change) {
            return slot ? change->journal() == slot : change->journal() == nullptr;
        });
        if (step.changes.empty()) continue;
        kept.push_back(std::move(step));
        done += i < done_;
    }
    steps_ = std::move(kept);
    done_ = done;
    joins_ = false;
    tell();
}

void EditHistory::tell() {
    undoName.set(done_ > 0 ? steps_[done_ - 1].name : std::string());
    redoName.set(done_ < steps_.size() ? steps_[done_].name : std::string());
    canUndo.set(done_ > 0);
    canRedo.set(done_ < steps_.size());
}

}  // namespace gatehouse
