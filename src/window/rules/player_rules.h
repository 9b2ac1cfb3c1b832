#pragma once

#include "base/observable.h"
#include "base/signal.h"
#include "config/settings_document.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace gatehouse {

/// A colour as the game mixes it.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kGreen{0, 255, 0};
inline constexpr Colour kYellow{255, 255, 0};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kCyan{0, 255, 255};
inline constexpr Colour kMagenta{255, 0, 255};
inline constexpr Colour kWhite{255, 255, 255};

/// Colours of the codes "^0" to "^7" in a name.
inline constexpr std::array<Colour, 8> kCaretColours = {kBlack, kRed, kGreen, kYellow, kBlue, kCyan, kMagenta, kWhite};
/// Colours of the effects 1 to 7: an order of the game's own.
inline constexpr std::array<Colour, 7> kEffectColours = {kBlue, kGreen, kCyan, kRed, kMagenta, kYellow, kWhite};

/// One character of the name preview.
struct NameCell {
    char character = ' ';
    Colour colour = kBlack;
    friend bool operator==(const NameCell&, const NameCell&) = default;
};

inline constexpr std::size_t kNameCells = 25;
using NameCells = std::array<NameCell, kNameCells>;

/// The name as the game would colour it. From an unknown code on, the cells stay what they are in `cells`.
NameCells previewName(NameCells cells, std::string_view name);

/// The live previews of the Player tab: the coloured name, the crosshair and the colour of the effects.
class PlayerRules {
public:
    /// The previews follow the document from here on, for as long as this object lives.
    explicit PlayerRules(SettingsDocument& doc);
    PlayerRules(const PlayerRules&) = delete;
    PlayerRules& operator=(const PlayerRules&) = delete;

    Observable<NameCells> nc;
    Observable<int> chpic{1};  ///< number of the crosshair's picture, from 1; there may be no such picture
    Observable<Colour> fxpreview;

    void crosshairupdown_DownClick() { moveCrosshair(-1); }
    void crosshairupdown_UpClick() { moveCrosshair(1); }
    void q3fxcolorupdown_DownClick();
    void q3fxcolorupdown_UpClick();

private:
    void q3playername_Change();
    void chindex_Change();
    void q3fxcolor_Change();
    void moveCrosshair(int direction);

    SettingsDocument& doc_;
    Connections follow_;
};

}  // namespace gatehouse
