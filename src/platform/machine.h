#pragma once

#include <string>

namespace gatehouse {

/// What the program runs on, for a person to read; empty where the system doesn't tell.
struct MachineInfo {
    std::string processor;
    std::string graphics;
    std::string kernel;
    friend bool operator==(const MachineInfo&, const MachineInfo&) = default;
};

class Machine {
public:
    virtual ~Machine() = default;
    virtual MachineInfo info() const = 0;
};

}  // namespace gatehouse
