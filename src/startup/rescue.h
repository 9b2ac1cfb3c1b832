#pragma once

#include "platform/clock.h"
#include "platform/ground.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// One kind of work that can be unsaved when the program ends.
struct RescueKind {
    std::string_view stem;  ///< of its files' names
    std::string_view ending;
    /// What no file has, as the text of a file; nothing where all is saved.
    std::function<std::optional<std::string>()> unsaved;
    /// Takes in such a file, which can be read, as work that is to be saved. Fails where that can't be.
    std::function<void(const std::string& path)> open;
};

/// What became of unsaved work: each the rest of a line, empty if there is nothing to tell.
struct Kept {
    std::string where;
    std::string lost;
};

/// Keeps unsaved work when the program has to end, in files of their own in the program folder, and a record beside
/// them; the next start tells of it. Nothing is ever written over what an earlier run has kept.
class Rescue {
public:
    /// The kinds in the order in which they are kept and opened.
    Rescue(const Ground& ground, const Clock& clock, std::vector<RescueKind> kinds);

    /// Keeps all that is unsaved. Doesn't fail: what can't be kept is told. What the same run has kept before is brought
    /// up to date.
    Kept keep(const std::string& reason);
    /// Takes back what this run has kept: it went on after all, and its work is dealt with.
    void takeBack();

    /// One line that tells what earlier runs have kept, empty if there is nothing.
    std::string notice() const;
    /// Tells that in a box, once, and opens the latest of each kind if that is wanted.
    void offer();

private:
    /// What one run has kept.
    struct Entry {
        std::string time;
        std::string reason;
        std::vector<std::string> paths;
    };

    std::string recordPath() const;
    std::vector<Entry> readRecord() const;
    void writeRecord(const std::vector<Entry>& entries);
    /// The kind of a bare file name, or nothing.
    const RescueKind* kindOf(std::string_view name) const;
    void openLatest(const std::vector<Entry>& entries);

    const Ground ground_;
    const Clock& clock_;
    std::vector<RescueKind> kinds_;
    std::vector<std::string> own_;                ///< the file of each kind that this run has made
    std::optional<std::vector<Entry>> earlier_;  ///< the record without this run, once this run has kept something
};

}  // namespace gatehouse
