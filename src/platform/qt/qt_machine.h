#pragma once

#include "platform/machine.h"

namespace gatehouse {

/// What the kernel tells of this machine, in its own file systems.
class QtMachine : public Machine {
public:
    MachineInfo info() const override;
};

}  // namespace gatehouse
