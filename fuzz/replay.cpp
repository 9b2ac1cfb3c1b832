// Gives every file of a corpus to the target, without a fuzzer.

#include "fuzz.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::vector<std::uint8_t> bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

int replay(const std::filesystem::path& corpus) {
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        // Said before it is tried: a crash is that file's.
        std::fprintf(stderr, "%s\n", entry.path().c_str());
        const auto bytes = bytesOf(entry.path());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        ++replayed;
    }
    std::fprintf(stderr, "%d files\n", replayed);
    return replayed > 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    try {
        return replay(argv[1]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "failed: %s\n", failure.what());
        return 1;
    }
}
