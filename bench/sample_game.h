#pragma once

#include <filesystem>

namespace gatehouse {

struct RunState;

/// A game folder of about 400 MB for timing the search for mods: `game/` with its archives, and `home/`, a program
/// folder that knows no mod.
struct SampleGame {
    std::filesystem::path root;

    std::filesystem::path game() const { return root / "game"; }
    std::filesystem::path home() const { return root / "home"; }
    /// Makes what is not there yet. Fails if an archive can't be written.
    void make() const;
    /// Tells a run where both folders are.
    void enter(RunState& run) const;
};

/// Where the samples are kept between runs.
SampleGame sampleGame();

}  // namespace gatehouse
