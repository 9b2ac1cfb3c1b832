#pragma once

#include "platform/machine.h"

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

/// What became of one iteration. Only a good one counts as a figure.
enum class Outcome {
    Good,
    Unread,   ///< the game ended, but there was no timing to be read
    Stale,    ///< given up, and the next one was taken
    Retried,  ///< given up, and the same one was tried again
    Stopped
};

/// What became of a whole run.
enum class RunEnd {
    None,  ///< it runs, or it was broken off
    Finished,
    Stopped,
    Failed
};

/// One start of the game.
struct Iteration {
    int configuration = 0;  ///< its place in the record, from 0
    int demo = 0;           ///< the same
    int number = 1;         ///< from 1; a retried one has the number of the next
    Outcome outcome = Outcome::Good;
    double value = 0;  ///< frames a second
    /// As the game says them.
    std::optional<int> frames;
    std::optional<double> seconds;
    std::string at;  ///< when it began, local time, "2001-02-03 14:05:06"
    friend bool operator==(const Iteration&, const Iteration&) = default;
};

/// All that is known of one run of the benchmark. Texts are as the program holds them; in the file they are UTF-8.
struct RunRecord {
    struct Configuration {
        std::string name;  ///< file name of the document
        std::string text;  ///< what the game was given of it, without the lines of the demo
        friend bool operator==(const Configuration&, const Configuration&) = default;
    };

    std::string version;  ///< of this program
    std::string started;  ///< local time, "2001-02-03 14:05:06"
    std::string ended;    ///< the same; empty for a run that has not come to its end
    RunEnd end = RunEnd::None;
    std::string failure;  ///< why it failed
    MachineInfo machine;
    std::string game;         ///< path of the program
    std::string commandLine;  ///< as it was started
    int wanted = 0;           ///< iterations for each configuration and demo
    std::string staleMinutes;
    std::string unsavedKept;  ///< where changes went that were unsaved when it began; empty without any
    std::vector<Configuration> configurations;
    std::vector<std::string> demos;
    std::vector<Iteration> iterations;
    friend bool operator==(const RunRecord&, const RunRecord&) = default;
};

/// The record as the text of a JSON file (RFC 8259).
std::string recordText(const RunRecord& record);
/// Reads such a text back. Fails, saying what is wrong, for anything that `recordText` doesn't write: another form, an
/// iteration of a configuration or demo that the record doesn't have, a figure that is none.
RunRecord parseRecord(const std::string& text);

/// "good", "stale" ...
std::string_view outcomeName(Outcome outcome);

}  // namespace gatehouse
