// The title in a map: what is found stands in the file as it says.

#include "content/description_scan.h"

#include "base/text.h"
#include "fuzz.h"

#include <algorithm>
#include <string_view>

namespace {

using namespace gatehouse;

constexpr std::size_t kChunk = DescriptionSearch::kChunk;
constexpr std::size_t kStep = 257;  // what one count of the first byte moves the text by

/// A file of more than one chunk with the text somewhere in it, also across the border of two chunks.
std::string fileOf(const std::string& input) {
    const std::size_t before = input.empty() ? 0 : static_cast<unsigned char>(input.front()) * kStep;
    std::string file(before, '\0');
    if (!input.empty()) file += input.substr(1);
    if (file.size() <= kChunk) file.resize(kChunk + 1);
    return file;
}

void check(const std::string& file, const DescriptionSearch& search) {
    fuzz::require(search.position() <= search.size(), "the place lies in the file");
    if (!search.found()) return fuzz::require(search.title().empty(), "nothing found, no title");
    const std::string& title = search.title();
    fuzz::require(!title.empty() && title.find('"') == std::string::npos, "a title is what stands between two quotes");
    fuzz::require(std::all_of(title.begin(), title.end(), [](unsigned char letter) { return letter >= ' '; }),
                  "a title is one line");
    std::string seen = file;
    for (char& letter : seen)
        if (static_cast<unsigned char>(letter) < ' ') letter = ' ';
    fuzz::require(findNoCase(seen, "\"message\" \"" + title + "\"") != 0, "the title stands in the file");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = fileOf(fuzz::textOf(data, size));
    DescriptionSearch search(file.size());
    for (std::size_t at = 0; !search.done(); at += kChunk) {
        fuzz::require(at < file.size(), "the search ends with the file");
        search.take(std::string_view(file).substr(at, kChunk));
    }
    check(file, search);
    return 0;
}
