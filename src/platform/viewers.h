#pragma once

#include <string>

namespace gatehouse {

class Viewers {
public:
    virtual ~Viewers() = default;
    /// Shows a text file in the user's text viewer and does not wait. Fails if none can be started.
    virtual void viewText(const std::string& path) = 0;
};

}  // namespace gatehouse
