#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace gatehouse::practice {

/// The files of the game folder, as the console names them. Names are looked up without regard to case, in the mod's
/// folder and then in "baseq3", and nothing outside of the game folder is ever read or written.
class GameFiles {
public:
    static constexpr std::size_t kMaxConfigBytes = 1024 * 1024;

    /// `mod` may be empty for the game itself; a text that is no plain folder name counts as empty.
    GameFiles(std::filesystem::path folder, const std::string& mod);

    const std::filesystem::path& folder() const { return folder_; }
    const std::string& mod() const { return mod_; }

    /// The text of a config; nothing if there is none, or one beyond the limit.
    std::optional<std::string> readConfig(const std::string& name) const;
    /// True for the demos that the game brings along and for those in a "demos" folder.
    bool hasDemo(const std::string& name) const;
    /// Writes a text file into the mod's folder, ".txt" added where the name has no extension.
    /// False if the name is no plain file name or the file can't be written.
    bool writeDump(const std::string& name, const std::string& text) const;

private:
    std::optional<std::filesystem::path> find(const std::string& name) const;
    std::optional<std::filesystem::path> findBelow(const std::string& top, const std::string& name) const;

    std::filesystem::path folder_;
    std::string mod_;
};

}  // namespace gatehouse::practice
