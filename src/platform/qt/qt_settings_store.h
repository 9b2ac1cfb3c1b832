#pragma once

#include "platform/settings_store.h"

#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

/// Texts in the section `[config]` of an INI file of the toolkit's form. The file is replaced whole at each change, and
/// read anew when it is another than before; what else stands in it stays.
class QtSettingsStore : public SettingsStore {
public:
    /// `file` is a native path; the file and its folder are made by the first write.
    explicit QtSettingsStore(std::string file);

    /// Fails for a file that is damaged, or longer than 1 MiB.
    std::optional<std::string> read(const std::string& key) const override;
    /// Values that are stored already cost nothing.
    void write(const Values& values) override;
    /// A damaged file is kept beside, under a name of its own.
    void deleteSection() override;

private:
    /// What tells one content of the file from another.
    struct Identity {
        std::uint64_t device = 0;
        std::uint64_t node = 0;  ///< 0 for no file
        std::int64_t size = 0;
        std::int64_t changed = 0;  ///< nanoseconds
        friend bool operator==(const Identity&, const Identity&) = default;
    };

    Identity identity() const;
    void refresh() const;
    void load() const;
    void requireReadable() const;
    std::string content() const;
    void replace(const std::string& text);
    void setAside();

    std::string name_;
    mutable std::optional<Identity> known_;  ///< of the file when it was read
    mutable std::map<std::string, std::string> values_;
    mutable bool damaged_ = false;
};

/// Bytes as text that an INI file can hold: UTF-8 as what it says, so that a path can be read there, every other byte
/// as a character of a private range.
QString storedText(std::string_view bytes);
/// The way back; what `storedText` made comes back to the byte.
std::string bytesOf(const QString& stored);

}  // namespace gatehouse
