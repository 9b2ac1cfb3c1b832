#pragma once

#include "base/edits.h"
#include "base/runtime_failure.h"
#include "base/signal.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// How the rows of a table are ordered; the order changes only on command.
struct SortState {
    bool sorted = false;
    int key = 0;
    bool descending = false;
};

/// Rows of one kind, addressed from 1, with one current row (0 for none) and any number of selected rows. The only
/// store of its records: a view shows it and keeps nothing. Holds 32767 rows at most; one more fails.
template <class Row>
class Table {
public:
    int count() const { return static_cast<int>(rows_.size()); }
    bool empty() const { return rows_.empty(); }

    /// The row at a position. Fails outside of the table.
    const Row& at(int position) const { return rows_[slot(position)].row; }

    /// Changes one row in place; `rowChanged` fires afterwards. Fails outside of the table.
    template <class Change>
    void update(int position, Change&& change) {
        change(rows_[slot(position)].row);
        rowChanged.emit(position);
    }

    /// Hands every row to `change`, which tells whether it has changed it; `reset` fires once if any has.
    template <class Change>
    void updateAll(Change&& change) {
        bool any = false;
        for (Entry& entry : rows_) any |= change(entry.row);
        if (any) reset.emit();
    }

    /// Adds a row at the end and returns its position. The first row of a table becomes the current one.
    int append(Row row) {
        if (count() == std::numeric_limits<short>::max()) throw RuntimeFailure("Overflow: too many rows");
        rows_.push_back({std::move(row), false});
        rowInserted.emit(count());
        if (count() == 1) setCurrent(1);
        return count();
    }

    /// Takes one row out. The current row stays the same record; if it was the one removed, the row that takes its
    /// place, or the last one, becomes current.
    void remove(int position) {
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(slot(position)));
        int current = current_;
        if (current > position || current > count()) --current;
        current_ = current;
        rowRemoved.emit(position);
        currentChanged.emit();
    }

    /// Keeps the rows for which `keep` holds, in one pass; `reset` fires once.
    template <class Keep>
    void retain(Keep&& keep) {
        std::vector<Entry> kept;
        int current = 0;
        for (int position = 1; position <= count(); ++position) {
            if (!keep(position, at(position))) continue;
            kept.push_back(std::move(rows_[slot(position)]));
            if (position <= current_) current = static_cast<int>(kept.size());
        }
        if (kept.size() == rows_.size()) {
            rows_ = std::move(kept);
            return;
        }
        rows_ = std::move(kept);
        current_ = rows_.empty() ? 0 : std::max(current, 1);
        reset.emit();
        currentChanged.emit();
    }

    void clear() {
        if (rows_.empty()) return;
        rows_.clear();
        current_ = 0;
        reset.emit();
        currentChanged.emit();
    }

    /// A copy of all rows.
    std::vector<Row> rows() const {
        std::vector<Row> all;
        all.reserve(rows_.size());
        for (const Entry& entry : rows_) all.push_back(entry.row);
        return all;
    }
    /// Puts other rows in the place of all; the row at `current`, or the last one before it, is current then.
    void setRows(std::vector<Row> rows, int current) {
        rows_.clear();
        for (Row& row : rows) rows_.push_back({std::move(row), false});
        current_ = std::clamp(current, std::min(1, count()), count());
        reset.emit();
        currentChanged.emit();
    }

    int current() const { return current_; }
    /// Fails for a position that is neither 0 nor a row.
    void setCurrent(int position) {
        if (position != 0) static_cast<void>(slot(position));
        if (position == current_) return;
        current_ = position;
        currentChanged.emit();
    }

    bool selected(int position) const { return rows_[slot(position)].selected; }
    void select(int position, bool on = true) {
        bool& flag = rows_[slot(position)].selected;
        if (flag == on) return;
        flag = on;
        selectionChanged.emit();
    }
    void selectNone() {
        bool any = false;
        for (auto& entry : rows_) any |= std::exchange(entry.selected, false);
        if (any) selectionChanged.emit();
    }
    /// Selects the rows for which `wanted` holds, and no others; `selectionChanged` fires once.
    template <class Wanted>
    void selectWhere(Wanted&& wanted) {
        bool any = false;
        for (int position = 1; position <= count(); ++position) {
            const bool on = wanted(position);
            any |= std::exchange(rows_[slot(position)].selected, on) != on;
        }
        if (any) selectionChanged.emit();
    }
    int selectedCount() const {
        return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const Entry& e) { return e.selected; }));
    }

    const SortState& sortState() const { return sort_; }
    void setSortState(const SortState& state) { sort_ = state; }

    /// Orders the rows by the text that `column` gives for a row and a column number, as `sortState` tells. Equal texts
    /// keep their order; the current row and the selection stay with their records.
    template <class Column>
    void sort(Column&& column) {
        if (!sort_.sorted) return;
        std::vector<std::size_t> order(rows_.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            const std::string& x = column(rows_[a].row, sort_.key);
            const std::string& y = column(rows_[b].row, sort_.key);
            return sort_.descending ? y < x : x < y;
        });
        std::vector<Entry> ordered;
        ordered.reserve(rows_.size());
        int current = 0;
        for (const std::size_t from : order) {
            ordered.push_back(std::move(rows_[from]));
            if (static_cast<int>(from) + 1 == current_) current = static_cast<int>(ordered.size());
        }
        rows_ = std::move(ordered);
        current_ = current;
        reset.emit();
        currentChanged.emit();
    }

    Signal<int> rowInserted;
    Signal<int> rowRemoved;
    Signal<int> rowChanged;
    /// Many rows changed, or their order.
    Signal<> reset;
    Signal<> currentChanged;
    Signal<> selectionChanged;
    Edits edits;

private:
    struct Entry {
        Row row;
        bool selected = false;
    };

    std::size_t slot(int position) const {
        if (position < 1 || position > count())
            throw RuntimeFailure("Index out of bounds: row " + std::to_string(position) + " of " + std::to_string(count()));
        return static_cast<std::size_t>(position - 1);
    }

    std::vector<Entry> rows_;
    int current_ = 0;
    SortState sort_;
};

}  // namespace gatehouse
