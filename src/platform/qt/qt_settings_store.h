#pragma once

#include "platform/settings_store.h"

#include <QString>

#include <string>
#include <string_view>

class QSettings;

namespace gatehouse {

/// Texts in the section `[config]` of an INI file, which is read anew at each call.
class QtSettingsStore : public SettingsStore {
public:
    /// `file` is a native path; the file and its folder are made by the first write.
    explicit QtSettingsStore(std::string file);

    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& text) override;
    void deleteSection() override;

private:
    enum class Damage { Fails, Passes };
    void save(QSettings& settings, Damage damage) const;
    void requireReadable() const;
    void requireWritable(const QSettings& settings) const;

    QString file_;
    std::string name_;
};

/// Bytes as text that an INI file can hold: UTF-8 as what it says, so that a path can be read there, every other byte
/// as a character of a private range.
QString storedText(std::string_view bytes);
/// The way back; what `storedText` made comes back to the byte.
std::string bytesOf(const QString& stored);

}  // namespace gatehouse
