#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lobegraph {

/// The number that a text begins with. Blanks, then a sign, digits, a point, a complete exponent; never
/// "inf", "nan" or hexadecimal, and never anything of the system's locale.
struct ScannedNumber {
  double Value = 0.0;
  std::size_t Begin = 0;   ///< first character of the number (its sign included)
  std::size_t Length = 0;  ///< characters of the number from Begin; 0 when the text has no leading number
};

/// @throws RunTimeError 6 (Overflow) for a number beyond the range of a double.
ScannedNumber ScanNumber(std::string_view text);

/// The value of the leading number, 0 when there is none: how everything that a user types is read.
/// @throws RunTimeError 6 (Overflow) for a number beyond the range of a double.
double LeadingNumber(std::string_view text);

/// A typed text with its decimal comma as a point: "0,25" is "0.25". A comma between digits can be nothing
/// else in a box that holds one number.
std::string WithDecimalPoint(std::string_view typed);

/// The leading number of a typed text, a decimal comma included, without a fault: infinite for a number
/// beyond the range of a double, which no place has room for.
double TypedNumber(std::string_view text);

/// The value of a text that is a number from end to end (blanks around it allowed).
/// @throws RunTimeError 13 (Type mismatch) for any other text, 6 (Overflow) as above.
double WholeNumberText(std::string_view text);

/// Text of a single in the form of pattern files and plot boxes: at most 7 digits, a point in every locale,
/// no zero before the point (".5", "-.25"), exponent form outside seven places ("1E+20", "1.5E-09"); a whole
/// value has no point.
std::string SingleText(float value);

/// SingleText with a blank in the sign's place of a value that is not negative (" 1000").
std::string SignedPlaceText(float value);

/// Text of a number in the form of the settings store: as SingleText, but "0.5".
std::string StoreText(float value);

/// A fixed number of decimals with a point in every locale: FixedText(64.0, 2) is "64.00".
std::string FixedText(double value, int decimals);

}  // namespace lobegraph
