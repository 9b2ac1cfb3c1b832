#include "window/rules/player_rules.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace gatehouse {

namespace {

constexpr char kCodeMark = '^';

}  // namespace

NameCells previewName(NameCells cells, std::string_view name) {
    // The end comes from the trimmed name, the walk takes the name as it stands: blanks in front push the tail out.
    const std::size_t end = trim(name).size();
    // A code mark at the very end is looked at together with what follows it.
    const std::string walked = std::string(name) + "  ";
    Colour colour = kWhite;
    std::size_t position = 0;
    for (std::size_t cell = 0; cell < cells.size();) {
        if (position >= end) {
            cells[cell++] = {};
            continue;
        }
        if (walked[position] != kCodeMark) {
            cells[cell++] = {walked[position++], colour};
            continue;
        }
        const char code = walked[position + 1];
        // An unknown code is never passed: all cells from here on keep what they show.
        if (code < '0' || code > '7') break;
        colour = kCaretColours[static_cast<std::size_t>(code - '0')];
        position += 2;
    }
    return cells;
}

PlayerRules::PlayerRules(SettingsDocument& doc) : doc_(doc) {
    const auto follow = [this](Field& field, void (PlayerRules::*rule)()) {
        follow_.on(field.changed, [this, rule] { (this->*rule)(); });
        (this->*rule)();
    };
    follow(doc.q3playername, &PlayerRules::q3playername_Change);
    follow(doc.chindex, &PlayerRules::chindex_Change);
    follow(doc.q3fxcolor, &PlayerRules::q3fxcolor_Change);
}

void PlayerRules::q3playername_Change() { nc.set(previewName(nc.get(), doc_.q3playername.text())); }

void PlayerRules::chindex_Change() {
    constexpr double kMost = std::numeric_limits<std::int16_t>::max();
    const double crosshair = std::clamp(val(doc_.chindex.text()), 0.0, kMost);
    chpic.set(static_cast<int>(crosshair) + 1);
}

void PlayerRules::q3fxcolor_Change() {
    const double number = val(doc_.q3fxcolor.text());
    if (number < 1 || number > static_cast<double>(kEffectColours.size()) || number != std::floor(number)) return;
    fxpreview.set(kEffectColours[static_cast<std::size_t>(number) - 1]);
}

void PlayerRules::moveCrosshair(int direction) {
    const Range& range = *doc_.chindex.range();
    const double moved = val(doc_.chindex.text()) + direction * range.step;
    doc_.chindex.setText(shortestDecimal(std::clamp<double>(moved, range.min, range.max)));
}

void PlayerRules::q3fxcolorupdown_DownClick() {
    const double least = doc_.q3fxcolor.range()->min;
    doc_.q3fxcolor.setText(shortestDecimal(std::max(val(doc_.q3fxcolor.text()) - 1, least)));
}

void PlayerRules::q3fxcolorupdown_UpClick() {
    const double most = doc_.q3fxcolor.range()->max;
    doc_.q3fxcolor.setText(shortestDecimal(std::min(val(doc_.q3fxcolor.text()) + 1, most)));
}

}  // namespace gatehouse
