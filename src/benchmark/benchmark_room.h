#pragma once

#include "base/command_flags.h"
#include "base/room.h"
#include "base/runtime_failure.h"
#include "platform/ground.h"

namespace gatehouse {

/// Timed runs of the game over documents and demos.
class BenchmarkRoom : public Room {
public:
    explicit BenchmarkRoom(const Ground& ground) : flags_(ground.flags) {}

    /// There is nothing to run until documents and demos are chosen.
    void LoadBenchmarkLists() { flags_.SetRunEnabled(false); }
    /// Fails: this version runs none.
    [[noreturn]] void run() { throw RuntimeFailure("Benchmarks can't be run by this version"); }

private:
    CommandFlags& flags_;
};

}  // namespace gatehouse
