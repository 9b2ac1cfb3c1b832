#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace gatehouse {

/// Programs that were started and left to themselves. Each leads a session of its own and survives this process.
class ChildPrograms {
public:
    /// Starts a native program, given by its path, in a native folder: no input, no console, and our environment. The
    /// first argument is the program's name. Fails with the system's reason when it does not come to run.
    void start(const std::string& program, const std::vector<std::string>& arguments, const std::string& folder);

    /// Those that still run.
    std::vector<pid_t> alive() const;

private:
    /// Has the kernel tell when the program ends, so that it doesn't stay behind as a dead process.
    void reapAtEnd(pid_t pid);

    mutable std::vector<pid_t> pids_;
};

/// Native path of a program on the search path; empty when there is none.
std::string findOnSearchPath(const std::string& name);

}  // namespace gatehouse
