#include "sample_game.h"

#include "base/run_state.h"
#include "platform/qt/native_paths.h"

#include <zip.h>

#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace gatehouse {

namespace fs = std::filesystem;

namespace {

constexpr int kArchives = 16;
constexpr int kEntries = 2500;
constexpr std::size_t kEntryBytes = 10 * 1024;  // 400 MB in all

std::vector<char> entryContent() {
    std::mt19937 random(1);
    std::vector<char> bytes(kEntryBytes);
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

void addEntry(zip_t* archive, const std::string& name, const std::vector<char>& content) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const zip_int64_t index = source ? zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_GUESS) : -1;
    if (index < 0 || zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0) != 0)
        throw std::runtime_error("can't add " + name + ": " + zip_strerror(archive));
}

/// Made under another name first, so that an interrupted run leaves no half archive.
void makeArchive(const fs::path& path, bool withGameCode) {
    if (fs::exists(path)) return;
    const fs::path scratch = path.string() + ".tmp";
    const std::vector<char> content = entryContent();
    int error = 0;
    zip_t* archive = zip_open(scratch.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!archive) throw std::runtime_error("can't make " + scratch.string());
    for (int i = 0; i < kEntries; ++i)
        addEntry(archive, "textures/set" + std::to_string(i % 50) + "/wall_" + std::to_string(i) + ".tga", content);
    if (withGameCode) addEntry(archive, "vm/qagame.qvm", content);
    if (zip_close(archive) != 0) throw std::runtime_error("can't write " + scratch.string());
    fs::rename(scratch, path);
}

}  // namespace

void SampleGame::make() const {
    fs::create_directories(home() / "mods");
    const fs::path folder = game() / "mod";
    fs::create_directories(folder);
    for (int i = 1; i <= kArchives; ++i) makeArchive(folder / ("pak" + std::to_string(i) + ".pk3"), i == kArchives);
}

void SampleGame::enter(RunState& run) const {
    run.AppDir = toProgramPath(home().string()) + "\\";
    run.GameDir = toProgramPath(game().string()) + "\\";
}

SampleGame sampleGame() { return {fs::temp_directory_path() / "gatehouse-bench"}; }

}  // namespace gatehouse
