#include "window/rules/rotation_rules.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace gatehouse {

namespace {

constexpr int kPositionDigits = 3;

std::string positionText(int position) { return zeroPadded(position, kPositionDigits); }

}  // namespace

void RotationRules::giveFocus(std::string_view pane) {
    focusPane = pane;
    focusWanted.emit(pane);
}

void RotationRules::selectNextMap() {
    maps_.walkTo(std::min(maptree_.current() + 1, maptree_.count()));
    giveFocus(kTree);
}

void RotationRules::sortAndFocus() {
    sortRotation(maplist_);
    giveFocus(kList);
}

void RotationRules::add() {
    if (focusPane != kTree || maptree_.current() == 0) return;
    const MapEntry node = maptree_.at(maptree_.current());
    if (!isMap(node) || node.used) return selectNextMap();
    const std::string name = left(node.text, find(node.text, " "));
    maplist_.setCurrent(maplist_.append({positionText(maplist_.count() + 1), name, node.description}));
    log_.logEvent("added map " + quoted(name) + " to the map rotation list");
    sortAndFocus();
    maps_.mark(node.text, true);
    flags_.mtool2[1].set(true);
    if (maplist_.count() >= 2) flags_.mtool1.setAll(true);
    flags_.SetRunEnabled(true);
    selectNextMap();
    run_.ConfigChanged = true;
}

void RotationRules::remove() {
    const int selected = maplist_.current();
    if (focusPane != kList || selected == 0) return;
    const std::string map = trim(maplist_.at(selected).name) + " " + trim(maplist_.at(selected).description);
    log_.logEvent("removing map " + quoted(map) + " from rotation");
    maplist_.remove(selected);
    for (int position = 1; position <= maplist_.count(); ++position)
        maplist_.update(position, [position](RotationRow& row) { row.position = positionText(position); });
    sortAndFocus();
    const bool rowsRemain = !maplist_.empty();
    maplist_.setCurrent(std::min(selected, maplist_.count()));
    // The last map of all is meant to stay marked as used.
    const int last = maps_.mark(map, !rowsRemain);
    if (rowsRemain && last != 0) maps_.walkTo(last);
    flags_.mtool2[1].set(rowsRemain);
    flags_.mtool1.setAll(rowsRemain);
    flags_.SetRunEnabled(rowsRemain);
    giveFocus(rowsRemain ? kList : kTree);
    run_.ConfigChanged = true;
}

void RotationRules::rotationRestored() {
    const bool rows = !maplist_.empty();
    flags_.mtool2[1].set(rows);
    flags_.mtool1.setAll(rows);
    const std::int16_t mode = run_.CurrentMode.get();
    if (mode == kListen || mode == kDedicated) flags_.SetRunEnabled(rows);
}

void RotationRules::move(int step, std::string_view word) {
    const int selected = maplist_.current();
    if (selected == 0) return;
    const int from = valInt16(maplist_.at(selected).position);
    const int to = from + step;
    const int neighbour = selected + step;
    // From the thousandth row on texts and places differ: there may be a number to move to, but no neighbour.
    if (to > 0 && to <= maplist_.count() && neighbour > 0 && neighbour <= maplist_.count()) {
        maplist_.update(selected, [to](RotationRow& row) { row.position = positionText(to); });
        maplist_.update(neighbour, [from](RotationRow& row) { row.position = positionText(from); });
        log_.logEvent("moved " + quoted(maplist_.at(selected).name) + " " + std::string(word) +
                      " in the rotation order");
    }
    sortAndFocus();
    run_.ConfigChanged = true;
}

}  // namespace gatehouse
