#pragma once

#include "platform/clipboard.h"

namespace gatehouse {

/// The desktop's clipboard, as bytes of Windows-1252.
class QtClipboard : public Clipboard {
public:
    bool hasText() const override;
    std::string text() const override;
    void setText(const std::string& text) override;
};

}  // namespace gatehouse
