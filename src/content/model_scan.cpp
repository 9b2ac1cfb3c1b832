#include "content/model_scan.h"

#include "base/numbers.h"
#include "base/run_state.h"
#include "base/text.h"

#include "platform/tga.h"

#include <utility>

namespace gatehouse {

namespace {

constexpr std::size_t kPiece = 65536;
constexpr std::string_view kSeparators = "/\\";

std::string withCapital(const std::string& name) { return upper(left(name, 1)) + (name.empty() ? "" : mid(name, 2)); }

/// The folder that a file lies in, less the folders above it. Fails for an entry in no folder.
std::string folderAbove(const std::string& entry) {
    const auto end = entry.find_last_of(kSeparators);
    if (end == std::string::npos || end == 0) throw RuntimeFailure("it lies in no model's folder");
    return bareName(std::string_view(entry).substr(0, end));
}

/// What stands behind the last "_" up to the extension.
std::string skinOf(const std::string& entry) {
    const std::string file = bareName(entry);
    const auto start = file.rfind('_');
    const auto end = file.rfind('.');
    if (start == std::string::npos || end == std::string::npos || end < start) throw RuntimeFailure("it names no skin");
    return file.substr(start + 1, end - start - 1);
}

}  // namespace

ModelScan::ModelScan(const Ground& ground, Archives& archives, Pictures& pictures, const ModelCatalog& models)
    : ArchiveScan(ground, archives, {"q3getmdl", "mdlpaklabel", "mdllabel", "mdlprog"}, "Looking for Models"),
      pictures_(pictures),
      models_(models) {}

bool ModelScan::scan() {
    newModels_ = newSkins_ = newPreviews_ = 0;
    log_.logEvent("finding non-standard models");
    LineAppender usermdls(files_, models_.userModelsPath());
    learnKnown();
    enterGame();
    forEachArchive(Own::LeaveOut, [&](const Opened& opened) {
        countModels(opened);
        takeSkins(opened, usermdls);
        takeIcons(opened);
    });
    endPasses();
    log_.logEvent("finished extracting " + std::to_string(newModels_) + " new models, " + std::to_string(newSkins_) +
                  " new skins," + std::to_string(newPreviews_) + " new previews");
    usermdls.close();
    return !usermdls.failed();
}

void ModelScan::learnKnown() {
    knownModels_.clear();
    knownSkins_.clear();
    // Every other model of the archives is told as new, each time.
    for (const std::string_view model : standardModels()) knownModels_.insert(lower(std::string(model)));
    const ModelTree& tree = models_.mdltree;
    for (int position = 1; position <= tree.count(); ++position)
        if (const ModelEntry& node = tree.at(position); node.parent != 0)
            knownSkins_.insert(lower(tree.at(node.parent).text + "/" + node.text));
    const auto file = files_.openText(models_.userModelsPath());
    for (std::string line; file->readLine(line);) knownSkins_.insert(lower(line));
}

void ModelScan::countModels(const Opened& opened) {
    forEachEntry(opened, "Looking for models in ", {"models/players", "upper.md3"}, [&](const std::string& entry) {
        guarded({opened.file.path, entry, "problem with model " + entry, false}, [&] {
            if (knownModels_.insert(lower(folderAbove(entry))).second) newModels_ = addInt16(newModels_, 1);
        });
    });
}

void ModelScan::takeSkins(const Opened& opened, LineAppender& usermdls) {
    forEachEntry(opened, "Looking for skins in ", {"upper_", "skin"}, [&](const std::string& entry) {
        guarded({opened.file.path, entry, "problem with skin " + entry + " in file " + opened.file.path}, [&] {
            const std::string line = oneLine(withCapital(folderAbove(entry)) + "/" + withCapital(skinOf(entry)));
            if (knownSkins_.contains(lower(line))) return;
            usermdls.write(line);
            knownSkins_.insert(lower(line));
            newSkins_ = addInt16(newSkins_, 1);
        });
    });
}

void ModelScan::takeIcons(const Opened& opened) {
    forEachEntry(opened, "Looking for icons in ", {"icon_", "tga"}, [&](const std::string& entry) {
        guarded({opened.file.path, entry, "problem with icon " + entry + " in file " + opened.file.path},
                [&] { takeIcon(opened, entry); });
    });
}

EntryFault ModelScan::readIcon(const Opened& opened, const std::string& entry, Picture& icon) {
    std::string tga;
    const auto take = [&](std::uint64_t size, std::string_view piece) {
        tga.reserve(size);
        tga.append(piece);
        pace_.breathe();
    };
    const EntryFault fault = opened.archive.read(entry, kMostPictureBytes, kPiece, take);
    if (!fault) icon = decodeTga(tga);
    return fault;
}

void ModelScan::takeIcon(const Opened& opened, const std::string& entry) {
    const std::string target = cut(entry, 0, 4) + ".bmp";
    if (files_.fileExists(run_.AppDir + target)) return;
    Picture icon;
    EntryFault fault = readIcon(opened, entry, icon);
    if (!fault) fault = archives_.store(pictures_.bmp(std::move(icon)), target, run_.AppDir);
    if (fault) return leftOut_.add(opened.file.path, entry, *fault);
    newPreviews_ = addInt16(newPreviews_, 1);
}

}  // namespace gatehouse
