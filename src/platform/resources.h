#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

/// Texts that are built into the program.
class Resources {
public:
    virtual ~Resources() = default;
    /// The text of that name, such as "introduction.htm"; empty if there is none.
    virtual std::string text(std::string_view name) const = 0;
};

}  // namespace gatehouse
