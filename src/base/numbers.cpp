#include "base/numbers.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

namespace gatehouse {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Length of the number at the start of the text: sign, digits with at most one point, exponent.
std::size_t numberLength(std::string_view text) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    std::size_t digits = 0;
    bool point = false;
    for (; at < text.size(); ++at) {
        if (isDigit(text[at]))
            ++digits;
        else if (text[at] == '.' && !point)
            point = true;
        else
            break;
    }
    if (digits == 0) return 0;
    if (at < text.size() && std::string_view("eEdD").find(text[at]) != std::string_view::npos) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
        const std::size_t firstDigit = exponent;
        while (exponent < text.size() && isDigit(text[exponent])) ++exponent;
        if (exponent > firstDigit) at = exponent;
    }
    return at;
}

/// Value of a text that `numberLength` accepts whole.
double numberValue(std::string number) {
    for (char& c : number)
        if (c == 'd' || c == 'D') c = 'e';
    std::string_view view = number;
    if (view.starts_with('+')) view.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(view.data(), view.data() + view.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool below1 = view.find_first_not_of("-0") == view.find('.');
        const bool tiny = below1 || view.find("e-") != std::string_view::npos;
        const double limit = tiny ? 0.0 : std::numeric_limits<double>::max();
        return view.starts_with('-') ? -limit : limit;
    }
    return value;
}

std::optional<double> parseWhole(std::string_view text) {
    const std::string body = trim(text);
    if (body.empty() || numberLength(body) != body.size()) return std::nullopt;
    return numberValue(body);
}

template <class Int>
Int checkedWhole(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Int>::min() && whole <= std::numeric_limits<Int>::max()))
        throw RuntimeFailure("Overflow: " + shortestDecimal(value));
    return static_cast<Int>(whole);
}

template <class Int>
Int strictInt(std::string_view text) {
    const auto value = parseWhole(text);
    if (!value) throw RuntimeFailure("Type mismatch: " + quoted(text) + " is not a number");
    return checkedWhole<Int>(*value);
}

}  // namespace

double val(std::string_view text) {
    std::string packed;
    for (const char c : text.substr(0, 4096)) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
        packed += c;
    }
    packed.resize(numberLength(packed));
    return packed.empty() ? 0.0 : numberValue(packed);
}

std::int16_t wholeInt16(double value) { return checkedWhole<std::int16_t>(value); }
std::int16_t valInt16(std::string_view text) { return wholeInt16(val(text)); }
std::int16_t strictInt16(std::string_view text) { return strictInt<std::int16_t>(text); }
std::int32_t strictInt32(std::string_view text) { return strictInt<std::int32_t>(text); }
std::optional<double> parseDecimal(std::string_view text) {
    const auto value = parseWhole(text);
    const bool held = value && std::fabs(*value) < std::numeric_limits<double>::max();
    return held ? value : std::nullopt;
}

double strictDouble(std::string_view text) {
    const auto value = parseDecimal(text);
    if (!value) throw RuntimeFailure("Type mismatch: " + quoted(text) + " is not a number");
    return *value;
}

bool isNumeric(std::string_view text) { return parseWhole(text).has_value(); }

bool strictBoolean(std::string_view text) {
    const std::string body = trim(text);
    if (equalNoCase(body, "true")) return true;
    if (equalNoCase(body, "false")) return false;
    const auto value = parseWhole(body);
    if (!value) throw RuntimeFailure("Type mismatch: " + quoted(text) + " is neither true nor false");
    return *value != 0;
}

std::string booleanText(bool value) { return value ? "True" : "False"; }

std::int16_t addInt16(std::int16_t counter, int step) { return checkedWhole<std::int16_t>(double(counter) + step); }

std::string shortestDecimal(double value) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), result.ptr);
}

std::string decimalText(double value) {
    constexpr int kDigits = 15;
    std::array<char, 64> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, kDigits);
    return upper(std::string_view(buffer.data(), result.ptr));
}

std::string signedDecimal(double value) {
    std::string digits = shortestDecimal(std::fabs(value));
    if (digits.starts_with("0.")) digits.erase(0, 1);
    return (std::signbit(value) && value != 0 ? "-" : " ") + digits;
}

std::string hundredthsAsTenths(int position) {
    const int tenths = (std::abs(position) + 5) / 10;
    return std::string(position < 0 && tenths > 0 ? "-" : "") + std::to_string(tenths / 10) + "." +
           std::to_string(tenths % 10);
}

std::string elapsedText(double seconds) {
    const long hundredths = std::lround(std::fabs(seconds) * 100);
    return std::string(seconds < 0 && hundredths > 0 ? "-" : "") + zeroPadded(hundredths / 100, 3) + "." +
           zeroPadded(hundredths % 100, 2);
}

}  // namespace gatehouse
