#pragma once

#include <optional>
#include <string>

namespace gatehouse {

/// Per-user texts by key, in one section. Every write is on disk when the call returns.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    /// The stored text, or nothing when the key is missing. Fails when the store can't be read.
    virtual std::optional<std::string> read(const std::string& key) const = 0;
    /// Fails when the store can't be written.
    virtual void write(const std::string& key, const std::string& text) = 0;
    /// Takes the whole section away.
    virtual void deleteSection() = 0;
};

}  // namespace gatehouse
