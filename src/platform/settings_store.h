#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// Per-user texts by key, in one section. Every write is on disk when the call returns.
class SettingsStore {
public:
    using Values = std::vector<std::pair<std::string, std::string>>;

    virtual ~SettingsStore() = default;
    /// The stored text, or nothing when the key is missing. Fails when the store can't be read.
    virtual std::optional<std::string> read(const std::string& key) const = 0;
    /// Stores all of them or none. Fails when the store can't be written.
    virtual void write(const Values& values) = 0;
    /// Takes the whole section away. A store that is damaged is set aside.
    virtual void deleteSection() = 0;
};

}  // namespace gatehouse
