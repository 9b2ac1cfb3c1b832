#pragma once

#include "base/field.h"
#include "base/table.h"
#include "platform/ground.h"

#include <string>
#include <vector>

namespace gatehouse {

/// A document or a demo that can be chosen.
struct BenchmarkEntry {
    std::string name;  ///< of the file; a demo that is known by its bare name has that
};

using BenchmarkList = Table<BenchmarkEntry>;

/// What the Benchmark tab chooses from, and whether a run is possible with it.
class BenchmarkSetup {
public:
    /// `ghcdir` is the folder of the documents, `democount` how often each demo is to be played.
    BenchmarkSetup(const Ground& ground, const TextField& ghcdir, TextField& democount);

    BenchmarkList configlist;
    BenchmarkList demolist;
    FieldGroup labels{"benchmark"};
    LabelField cfglabel{labels, {.name = "cfglabel"}, "Configs"};
    LabelField demolabel{labels, {.name = "demolabel"}, "Demos"};
    /// Whether a person may choose now: not while a run is on.
    Observable<bool> choosing{true};

    /// Fills both lists anew; nothing is chosen then, and nothing can be run.
    void LoadBenchmarkLists();
    /// Enables the commands that start a run if there is something to be run.
    void checkRun();
    void restoreDesign();

    /// The names that are selected, in the list's order.
    static std::vector<std::string> chosen(const BenchmarkList& list);

private:
    void loadDemos();
    void loadConfigs();
    bool canRun() const;

    Ground with_;
    const TextField& ghcdir_;
    TextField& democount_;
    Connections follow_;
};

}  // namespace gatehouse
