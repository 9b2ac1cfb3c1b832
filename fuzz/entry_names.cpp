// Names of an archive's entries, one a line: scans take what is theirs, and nothing is written outside the folder.

#include "content/content_room.h"

#include "fuzz.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/zip_archives.h"
#include "support/core/fakes.h"

#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace {

using namespace gatehouse;

constexpr std::size_t kMostNames = 150;

std::vector<std::string> namesIn(const std::string& text) {
    std::vector<std::string> names;
    for (std::size_t start = 0; start < text.size() && names.size() < kMostNames;) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        // A name ends where the archive's own library would end it.
        names.push_back(text.substr(start, std::min(end - start, text.substr(start, end - start).find('\0'))));
        start = end + 1;
    }
    return names;
}

void scan(const std::vector<std::string>& names) {
    fake::World world;
    world.run.AppDir = "C:\\gh\\";
    world.run.GameDir = "C:\\q3\\";
    world.files.addFolder("C:\\gh\\levelshots");
    world.files.addFolder("C:\\q3\\baseq3");
    std::vector<fake::FakeArchives::Entry> entries;
    for (const std::string& name : names) entries.push_back({name, "x"});
    world.archives.put("C:\\q3\\baseq3\\a.pk3", entries);
    world.dialogs.onShow = [&world](const MessageBox& box) { world.dialogs.answer(box.title, Answer::No); };
    SettingsDocument doc;
    Observable<std::string> status;
    ContentRoom room(world.ground, world.services, doc, status);
    for (int i = 0; i < 2; ++i) {
        room.maps.loadStandardMaps();
        room.models.loadStandardModels();
        fuzz::require(room.mapScan.run() && room.modelScan.run(), "a name ends no scan");
        room.maps.loadUserMaps();
        room.models.loadUserModels();
    }
    for (int position = 1; position <= room.maps.maptree.count(); ++position)
        for (const unsigned char letter : room.maps.maptree.at(position).text)
            fuzz::require(letter >= ' ', "a map is one line");
}

void store(const std::vector<std::string>& names) {
    const QTemporaryDir scratch;
    const std::filesystem::path top = scratch.path().toStdString();
    std::filesystem::create_directory(top / "gh");
    ZipArchives archives;
    const std::string folder = toProgramPath((top / "gh").string()) + "\\";
    for (const std::string& name : names) archives.store("x", name, folder);
    const auto found = std::filesystem::directory_iterator(top);
    fuzz::require(std::distance(begin(found), end(found)) == 1, "nothing lies beside the folder");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> names = namesIn(fuzz::textOf(data, size));
    scan(names);
    store(names);
    return 0;
}
