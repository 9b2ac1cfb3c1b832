// The config document: refused with the line that is at fault, or read, and then what is written reads back as itself.

#include "base/text.h"
#include "fuzz.h"
#include "support/core/document_desk.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using namespace gatehouse;

/// Lines that reading and writing don't take alike: the depth bits come back set, and the pure server's check is
/// written as the check of the downloads, which forces it on. Each of them settles in one turn.
constexpr std::array<std::string_view, 3> kUnlike = {"seta r_depthbits ", "seta sv_pure ", "seta sv_allowdownload "};
/// Positions of three digits, so that their texts sort as their numbers do.
constexpr int kMostMaps = 999;


struct Desk : fake::DocumentDesk {
    Desk() {
        world.dialogs.onShow = [this](const MessageBox& box) { world.dialogs.answer(box.title, Answer::Ok); };
        doc.bindlist.append({"Grapple", "+grapple", std::string(kUnbound), "", BindingKind::Mod});
        doc.bindlist.append({"Zoom Switch", "alias11", std::string(kUnbound), std::string(kNoKey), BindingKind::Alias});
        host.variables = {{"g_speed", "320"}, {"g_teams", "Red|Blue"}};
    }

    /// The number of the line for which the document is refused, or nothing.
    std::optional<long> refusedAt(const std::string& text) {
        world.files.put(kPath, text);
        try {
            fuzz::require(documents.loadConfig(kPath), "a file that is there is opened");
            return std::nullopt;
        } catch (const DocumentFailure& failure) {
            return failure.lineNumber();
        }
    }
    bool reads(const std::string& text) { return !refusedAt(text); }
    /// Nothing for a document that can't be put into lines: it names a button that there isn't.
    std::optional<std::string> written() {
        const std::string before = world.files.content(kPath);
        try {
            return save();
        } catch (const RuntimeFailure&) {
            fuzz::require(world.files.content(kPath) == before, "a document that can't be written stays as it was");
            return std::nullopt;
        }
    }
    std::string rescued() {
        return documents.rescueText();
    }
};

bool sameLine(const std::string& one, const std::string& other) {
    if (one == other) return true;
    return std::any_of(kUnlike.begin(), kUnlike.end(),
                       [&](std::string_view key) { return one.starts_with(key) && other.starts_with(key); });
}

bool sameLines(const std::string& one, const std::string& other) {
    const auto lines = splitLines(one);
    const auto others = splitLines(other);
    return std::equal(lines.begin(), lines.end(), others.begin(), others.end(), sameLine);
}

/// The lines in front of one.
std::string linesBefore(const std::string& text, long number) {
    std::size_t end = 0;
    for (long line = 1; line < number; ++line) end = text.find('\n', end) + 1;
    return text.substr(0, end);
}

void checkRead(Desk& desk) {
    const auto first = desk.written();
    const std::string rescued = desk.rescued();
    // The format can't carry more maps than have positions.
    if (!first || desk.doc.maplist.count() > kMostMaps) return fuzz::require(desk.reads(rescued), "what was rescued can be read");
    fuzz::require(rescued == *first, "all of a document that can be written is rescued");

    fuzz::require(desk.reads(*first), "what was written can be read");
    const auto second = desk.written();
    fuzz::require(second && sameLines(*first, *second), "what was written and read is written again as it was");

    fuzz::require(desk.reads(*second) && desk.written() == second, "a document settles in one turn");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    Desk desk;
    const auto refused = desk.refusedAt(text);
    if (!refused) {
        checkRead(desk);
        return 0;
    }
    Desk another;
    fuzz::require(another.reads(linesBefore(text, *refused)), "what stands before a refused line is read");
    checkRead(another);
    return 0;
}
