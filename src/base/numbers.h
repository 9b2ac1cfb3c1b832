#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

// Number rules of the program's texts. None of them asks the locale.

/// The longest number at the start of the text, blanks skipped wherever they stand; 0 if there is none.
double val(std::string_view text);
/// Nearest whole number, a tie to the even neighbour. Fails outside of 16 bits.
std::int16_t wholeInt16(double value);
/// Whole value of `val(text)`. Fails outside of 16 bits.
std::int16_t valInt16(std::string_view text);
/// Strict conversion: the text, less outer blanks, is one number. Rounded like `wholeInt16`. Fails for any other text
/// and outside of 16 bits.
std::int16_t strictInt16(std::string_view text);
/// The same for 32 bits.
std::int32_t strictInt32(std::string_view text);
/// The number that a text is, less outer blanks; nothing for any other text and for one that no double can hold.
std::optional<double> parseDecimal(std::string_view text);
/// The same; fails for any other text.
double strictDouble(std::string_view text);
/// The generous test for a number: outer blanks, a sign, digits, a point and an exponent are accepted.
bool isNumeric(std::string_view text);
/// "true" and "false" in any case, or a number, non-zero being true. Fails for any other text.
bool strictBoolean(std::string_view text);
/// "True" or "False".
std::string booleanText(bool value);

/// Adds to a 16-bit counter. Fails when the sum leaves 16 bits.
std::int16_t addInt16(std::int16_t counter, int step);

/// The shortest decimal text that shows the value.
std::string shortestDecimal(double value);
/// Up to 15 significant digits without zeros at the end, and an exponent where the number is very large or small: the
/// form in which numbers have always been written into results.
std::string decimalText(double value);
/// The shortest decimal text with a place for the sign: a value that is not negative has one leading blank, and below 1
/// no zero stands before the point (" .5").
std::string signedDecimal(double value);
/// A position in hundredths as a number with one decimal place, halves away from zero: 35 gives "0.4".
std::string hundredthsAsTenths(int position);
/// Seconds as "000.00".
std::string elapsedText(double seconds);

}  // namespace gatehouse
