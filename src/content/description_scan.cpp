#include "content/description_scan.h"

#include "base/run_state.h"
#include "base/text.h"

#include <algorithm>

namespace gatehouse {

namespace {

constexpr std::string_view kKey = "\"message\" \"";

/// Where the key begins, in any case, from 0; `npos` if nowhere. A map is megabytes of numbers with few quotes in them.
std::size_t findKey(std::string_view chunk) {
    for (std::size_t at = chunk.find('"'); at != std::string_view::npos; at = chunk.find('"', at + 1))
        if (startsWithNoCase(chunk.substr(at), kKey)) return at;
    return std::string_view::npos;
}

}  // namespace

void DescriptionSearch::take(std::string_view chunk) {
    const std::size_t key = findKey(chunk);
    if (key != 0 && key != std::string_view::npos) {
        const std::string_view behind = chunk.substr(key + kKey.size());
        const std::size_t end = behind.find('"');
        if (end != 0 && end != std::string_view::npos) {
            title_ = oneLine(std::string(behind.substr(0, end)));
            found_ = done_ = true;
            return;
        }
    }
    done_ = position_ == size_;
    if (!done_) position_ = std::min<std::uint64_t>(position_ + kChunk, size_);
}

std::string DescriptionScan::scanFile(const std::string& path) {
    log_.logEvent("scanning map for description (" + path + ")");
    const Hourglass hourglass(run_);
    const auto file = files_.openText(path);
    DescriptionSearch search(files_.fileSize(path));
    if (q3getmaps_.q3scan.get()) q3getmaps_.startBar(static_cast<double>(search.size()));
    while (!search.done()) {
        showProgress(search);
        search.take(file->readBytes(DescriptionSearch::kChunk));
    }
    return askOrTake(path, search);
}

std::string DescriptionScan::conclude(const std::string& path, const DescriptionSearch& search) {
    log_.logEvent("scanning map for description (" + path + ")");
    return askOrTake(path, search);
}

void DescriptionScan::showProgress(const DescriptionSearch& search) {
    if (q3getmaps_.q3scan.get()) {
        q3getmaps_.progress.set(static_cast<double>(search.position()));
        pace_.breathe();
    } else {
        q3status_.set("Searching (" + std::to_string(search.position()) + " bytes)...");
    }
}

std::string DescriptionScan::askOrTake(const std::string& path, const DescriptionSearch& search) {
    if (search.found())
        log_.logEvent("found " + quoted(search.title()) + " at " + std::to_string(search.position()) + " of " +
                      std::to_string(search.size()) + " bytes");
    if (search.found() && search.title() != kCancel) return search.title();
    log_.logEvent("could not find map description");
    const Answer answer = dialogs_.show({.title = "Map Error",
                                         .text = "Could not find a description for this map. Add it Anyway?",
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Question,
                                         .about = bareName(path)});
    if (answer == Answer::Yes) {
        log_.logEvent("user chose to add the map anyway");
        return {};
    }
    log_.logEvent("user canceled");
    return std::string(kCancel);
}

}  // namespace gatehouse
