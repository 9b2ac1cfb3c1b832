#include "benchmark/run_record.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace gatehouse {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;
/// Bounds of what is read.
constexpr int kDeepest = 8;
constexpr std::size_t kMostEntries = 1'000'000;

constexpr std::array<std::pair<Outcome, std::string_view>, 5> kOutcomes = {{{Outcome::Good, "good"},
                                                                            {Outcome::Unread, "unread"},
                                                                            {Outcome::Stale, "stale"},
                                                                            {Outcome::Retried, "retried"},
                                                                            {Outcome::Stopped, "stopped"}}};
constexpr std::array<std::pair<RunEnd, std::string_view>, 4> kEnds = {
    {{RunEnd::None, "none"}, {RunEnd::Finished, "finished"}, {RunEnd::Stopped, "stopped"}, {RunEnd::Failed, "failed"}}};

template <class Names, class Value>
std::string_view nameOf(const Names& names, Value value) {
    for (const auto& [one, name] : names)
        if (one == value) return name;
    return {};
}

template <class Names>
auto valueOf(const Names& names, const std::string& word) {
    for (const auto& [value, name] : names)
        if (name == word) return value;
    throw RuntimeFailure("the word " + gatehouse::quoted(word) + " is unknown");
}

/// Length of the UTF-8 sequence that a text begins with, 0 for none (RFC 3629).
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : (lead & 0xF0) == 0xE0        ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool outside = (lead == 0xED && byte(1) > 0x9F) || (lead == 0xF4 && byte(1) > 0x8F);
    return overlong || outside ? 0 : length;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

/// A text that isn't UTF-8 has each byte for a character of that number: nothing is lost.
std::string utf8(const std::string& text) {
    if (isUtf8(text)) return text;
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0 | (byte >> 6));
            result += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return result;
}

Json jsonOf(const Iteration& one) {
    Json json = {{"configuration", one.configuration},
                 {"demo", one.demo},
                 {"number", one.number},
                 {"state", outcomeName(one.outcome)},
                 {"value", one.value}};
    if (one.frames) json["frames"] = *one.frames;
    if (one.seconds) json["seconds"] = *one.seconds;
    json["at"] = utf8(one.at);
    return json;
}

/// Members of an object, each checked.
class Members {
public:
    explicit Members(const Json& json) : json_(json) {
        if (!json.is_object()) throw RuntimeFailure("an object is missing");
    }

    const Json& at(const char* name) const {
        const auto found = json_.find(name);
        if (found == json_.end()) throw RuntimeFailure("there is no " + gatehouse::quoted(name));
        return *found;
    }
    std::string text(const char* name) const {
        const Json& value = at(name);
        if (!value.is_string()) throw RuntimeFailure(gatehouse::quoted(name) + " is no text");
        return value.get<std::string>();
    }
    int whole(const char* name, int least, int most) const {
        const Json& value = at(name);
        const bool fits =
            value.is_number_integer() && value.get<std::int64_t>() >= least && value.get<std::int64_t>() <= most &&
            !(value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(most));
        if (!fits)
            throw RuntimeFailure(gatehouse::quoted(name) + " is no number from " + std::to_string(least) + " to " +
                                 std::to_string(most));
        return value.get<int>();
    }
    double figure(const char* name) const {
        const Json& value = at(name);
        if (!value.is_number() || !std::isfinite(value.get<double>()) || value.get<double>() < 0)
            throw RuntimeFailure(gatehouse::quoted(name) + " is no figure");
        return value.get<double>();
    }
    bool has(const char* name) const { return json_.contains(name); }
    const Json& list(const char* name) const {
        const Json& value = at(name);
        if (!value.is_array() || value.size() > kMostEntries)
            throw RuntimeFailure(gatehouse::quoted(name) + " is no list");
        return value;
    }

private:
    const Json& json_;
};

constexpr int kMost = std::numeric_limits<int>::max();

Iteration iterationOf(const Json& json, const RunRecord& record) {
    const Members from(json);
    Iteration one;
    one.configuration = from.whole("configuration", 0, static_cast<int>(record.configurations.size()) - 1);
    one.demo = from.whole("demo", 0, static_cast<int>(record.demos.size()) - 1);
    one.number = from.whole("number", 0, kMost);
    one.outcome = valueOf(kOutcomes, from.text("state"));
    one.value = from.figure("value");
    if (from.has("frames")) one.frames = from.whole("frames", 0, kMost);
    if (from.has("seconds")) one.seconds = from.figure("seconds");
    one.at = from.text("at");
    return one;
}

/// The text as JSON, not deeper than a record is.
Json parsed(const std::string& text) {
    bool tooDeep = false;
    const auto bounded = [&tooDeep](int depth, Json::parse_event_t, Json&) {
        if (depth > kDeepest) tooDeep = true;
        return depth <= kDeepest;
    };
    Json json = Json::parse(text, bounded, false);
    if (json.is_discarded() || tooDeep) throw RuntimeFailure("it is no record of a benchmark");
    return json;
}

}  // namespace

std::string_view outcomeName(Outcome outcome) { return nameOf(kOutcomes, outcome); }

std::string recordText(const RunRecord& record) {
    Json json = {{"format", kFormat},
                 {"version", utf8(record.version)},
                 {"started", utf8(record.started)},
                 {"ended", utf8(record.ended)},
                 {"end", nameOf(kEnds, record.end)},
                 {"failure", utf8(record.failure)},
                 {"machine",
                  {{"processor", utf8(record.machine.processor)},
                   {"graphics", utf8(record.machine.graphics)},
                   {"kernel", utf8(record.machine.kernel)}}},
                 {"game", utf8(record.game)},
                 {"commandLine", utf8(record.commandLine)},
                 {"wanted", record.wanted},
                 {"staleMinutes", utf8(record.staleMinutes)},
                 {"unsavedKept", utf8(record.unsavedKept)}};
    json["configurations"] = Json::array();
    for (const auto& one : record.configurations)
        json["configurations"].push_back(Json{{"name", utf8(one.name)}, {"text", utf8(one.text)}});
    json["demos"] = Json::array();
    for (const std::string& demo : record.demos) json["demos"].push_back(utf8(demo));
    std::string text = json.dump(1);
    // An iteration stands on one line, for a person to read.
    text.replace(text.rfind('\n'), 2, ",\n \"iterations\": [");
    for (std::size_t i = 0; i < record.iterations.size(); ++i)
        text += (i == 0 ? "\n  " : ",\n  ") + jsonOf(record.iterations[i]).dump();
    return text + (record.iterations.empty() ? "]\n}\n" : "\n ]\n}\n");
}

RunRecord parseRecord(const std::string& text) {
    const Json json = parsed(text);
    const Members from(json);
    if (from.whole("format", 0, kMost) != kFormat) throw RuntimeFailure("it is a record of a later version");
    RunRecord record;
    record.version = from.text("version");
    record.started = from.text("started");
    record.ended = from.text("ended");
    record.end = valueOf(kEnds, from.text("end"));
    record.failure = from.text("failure");
    const Members machine(from.at("machine"));
    record.machine = {machine.text("processor"), machine.text("graphics"), machine.text("kernel")};
    record.game = from.text("game");
    record.commandLine = from.text("commandLine");
    record.wanted = from.whole("wanted", std::numeric_limits<short>::min(), std::numeric_limits<short>::max());
    record.staleMinutes = from.text("staleMinutes");
    record.unsavedKept = from.text("unsavedKept");
    for (const Json& one : from.list("configurations")) {
        const Members configuration(one);
        record.configurations.push_back({configuration.text("name"), configuration.text("text")});
    }
    for (const Json& demo : from.list("demos")) {
        if (!demo.is_string()) throw RuntimeFailure("a demo is no text");
        record.demos.push_back(demo.get<std::string>());
    }
    for (const Json& one : from.list("iterations")) record.iterations.push_back(iterationOf(one, record));
    return record;
}

}  // namespace gatehouse
