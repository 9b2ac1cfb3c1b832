#pragma once

#include <string>

namespace gatehouse {

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual bool hasText() const = 0;
    virtual std::string text() const = 0;
    virtual void setText(const std::string& text) = 0;
};

}  // namespace gatehouse
