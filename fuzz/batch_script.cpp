// The launch batch file: a script that is accepted names one program and one folder, whole.

#include "platform/batch_script.h"

#include "base/runtime_failure.h"
#include "fuzz.h"

namespace {

using namespace gatehouse;

void check(const BatchScript& script) {
    fuzz::require(!script.arguments.empty() && !script.arguments.front().empty(), "there is a program");
    fuzz::require(script.folder.size() >= 3 && script.folder[1] == ':', "the folder has a drive");
    for (const std::string& word : script.arguments)
        fuzz::require(word.find_first_of(std::string("\0\n\"", 3)) == std::string::npos,
                      "a program can be given each argument");
    fuzz::require(script.folder.find('\0') == std::string::npos, "the system can be given the folder");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        check(parseBatchScript(fuzz::textOf(data, size)));
    } catch (const RuntimeFailure&) {
        // A line that can't be carried out.
    }
    return 0;
}
