#pragma once

#include "platform/resources.h"

namespace gatehouse {

/// The help pages and the licence, out of the program's own file.
class QtResources : public Resources {
public:
    QtResources();
    std::string text(std::string_view name) const override;
};

}  // namespace gatehouse
