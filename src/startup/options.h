#pragma once

#include "base/field.h"
#include "base/log.h"
#include "base/options.h"
#include "base/run_state.h"

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

/// The fields that hold options: those of the options dialog and three of the Benchmark tab.
struct OptionsForm {
    FieldGroup options{"options"};
    TextField ghcdir{options,
                     {.name = "ghcdir", .caption = "Default GHC Folder:", .hint = kFolderHint, .isPath = true}};
    TextField extracmdline{options,
                           {.name = "extracmdline",
                            .caption = "Extra Command Line:",
                            .hint = "Put behind quake3.exe as it stands. The game believes everything you tell it.",
                            .isPath = true}};
    ListField q3startwith{
        options,
        {.name = "q3startwith", .caption = "When Gatehouse Starts,", .hint = "Which document is opened at the start."},
        {"Load last file saved.", "Load DEFAULT.GHC.", "Choose a file."}};
    ListField q3overwrite{options,
                          {.name = "q3overwrite",
                           .caption = "When Saving Files,",
                           .hint = "Whether a save asks before it replaces another file."},
                          {"Confirm overwrite.", "Always overwrite."}};
    ListField q3runoptions{options,
                           {.name = "q3runoptions",
                            .caption = "When I Click 'Run',",
                            .hint = "Whether Run starts the game, asks you first, or only makes the files."},
                           {"Make CFG, launch Q3A.", "Make CFG, then ask.", "Make CFG files only."}};
    TextField q3FilePath{options,
                         {.name = "q3FilePath", .caption = "Q3 Program Path:", .hint = kFolderHint, .isPath = true}};
    TextField q3pingwait{options,
                         {.name = "q3pingwait",
                          .caption = "Ping server timeout:",
                          .hint = "Seconds until a server that says nothing is given up."},
                         "3",
                         Range{1, 10, 1}};
    ListField q3loglevel{options,
                         {.name = "q3loglevel",
                          .caption = "Error logging level:",
                          .hint = "How much of what the program does is written down. After a fault, \"Everything.\" "
                                  "is what you wish you had chosen."},
                         {"None.", "Serious Errors.", "Everything."}};
    TextField q3buffsize{options,
                         {.name = "q3buffsize",
                          .caption = "Console buffer (bytes):",
                          .hint = "When the console holds this many bytes, it is emptied."},
                         "4096",
                         Range{1024, 32768, 1024}};
    TextField q3keeplogs{options,
                         {.name = "q3keeplogs",
                          .caption = "Logs to keep:",
                          .hint = "How many logs are kept, the present one not counted. The oldest go first."},
                         "",
                         Range{1, 100, 1}};

    FieldGroup benchmark{"benchmark"};
    ListField q3staleaction{benchmark,
                            {.name = "q3staleaction",
                             .caption = "Stale action:",
                             .hint = "What is done about an iteration that came to nothing, if nobody says otherwise."},
                            {"Retry.", "Next."}};
    TextField q3bwait{benchmark,
                      {.name = "q3bwait",
                       .caption = "Stale time (mins):",
                       .hint = "How long the game may take for a demo before it counts as hung."},
                      "5",
                      Range{1, 30, 1}};
    TextField democount{benchmark,
                        {.name = "democount",
                         .caption = "Iterations:",
                         .hint = "How often each document plays each demo. Once is a rumour, ten times is a figure."},
                        "3",
                        Range{1, 30, 1}};

private:
    static constexpr std::string_view kFolderHint =
        "Where Q3A is located on your computer. If this isn't right, You're not going to get very far...";
};

/// Ties the form to the store: reads it once, and from then on stores each change at once.
class OptionKeeper {
public:
    OptionKeeper(OptionsForm& form, Options& store, Log& log, RunState& run);

    /// Reads all options into the form and the run's values. Fails on a number that is none and on a list entry that
    /// isn't there.
    void read();
    /// Stores the first full set of options, for a game at this path.
    void storeFirstRun(const std::string& exepath);
    /// The value that a first run stores for a field, as a person sees it; nothing for a field that is no option.
    std::optional<std::string> firstRunText(const Field& field) const;
    /// From now on every change is stored and logged.
    void keepChanges();
    /// Puts the form back to what it is before any option is read; nothing is stored.
    void restoreDesign();

private:
    struct Row;
    std::vector<Row> rows() const;
    void keep(const Row& row);

    OptionsForm& form_;
    Options& store_;
    Log& log_;
    RunState& run_;
    bool keeping_ = false;
    bool kept_ = false;
};

}  // namespace gatehouse
