// An answer to the call into the local network: a row of one-line texts that fit their columns, only for the right word.

#include "base/text.h"
#include "fuzz.h"
#include "servers/master_protocol.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace gatehouse;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz::require(!parseInfoReply(bytes, "word that no corpus has: 7341"), "another word is refused");
    const auto row = parseInfoReply(bytes, "77");
    if (!row) return 0;
    for (const std::string& text : {row->Name, row->Map, row->Mod, row->Players, row->PlayerCount}) {
        fuzz::require(oneLine(text) == text, "a column is one line");
        fuzz::require(text.size() <= 64, "a column is short");
    }
    fuzz::require(row->Players == "?" || row->Players.size() == 5, "players stand under each other");
    fuzz::require(row->Address.empty(), "a reply doesn't say where it comes from");
    return 0;
}
