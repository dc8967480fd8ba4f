#include "data/base/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr int kSingleDigits = 7;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Digits of a value without its sign: "12345" and the power of ten of the first one.
struct Decimal {
  std::string Digits;
  int Exponent = 0;
};

Decimal ToDecimal(float magnitude) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific,
                                 kSingleDigits - 1)
                       .ptr;
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  const auto mark = text.find('e');
  Decimal result;
  for (const char c : text.substr(0, mark))
    if (IsDigit(c)) result.Digits += c;
  while (result.Digits.size() > 1 && result.Digits.back() == '0') result.Digits.pop_back();
  std::string_view exponent = text.substr(mark + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.Exponent);
  return result;
}

std::string ExponentForm(const Decimal& decimal) {
  std::string text = decimal.Digits.substr(0, 1);
  if (decimal.Digits.size() > 1) text += "." + decimal.Digits.substr(1);
  const int power = std::abs(decimal.Exponent);
  return text + (decimal.Exponent < 0 ? "E-" : "E+") + (power < 10 ? "0" : "") + std::to_string(power);
}

/// Fixed form is kept while it needs no more than seven places on either side of the point.
std::string MagnitudeText(float magnitude) {
  const Decimal decimal = ToDecimal(magnitude);
  const int places = static_cast<int>(decimal.Digits.size()) - 1 - decimal.Exponent;
  if (decimal.Exponent >= kSingleDigits || places > kSingleDigits) return ExponentForm(decimal);
  if (decimal.Exponent < 0)
    return "." + std::string(static_cast<std::size_t>(-decimal.Exponent - 1), '0') + decimal.Digits;
  const auto whole = static_cast<std::size_t>(decimal.Exponent) + 1;
  if (decimal.Digits.size() <= whole) return decimal.Digits + std::string(whole - decimal.Digits.size(), '0');
  return decimal.Digits.substr(0, whole) + "." + decimal.Digits.substr(whole);
}

std::string SignedText(float value, std::string_view beforePoint) {
  const std::string magnitude = MagnitudeText(std::abs(value));
  const bool startsWithPoint = magnitude.front() == '.';
  return std::string(value < 0 ? "-" : "") + (startsWithPoint ? std::string(beforePoint) : "") + magnitude;
}

}  // namespace

ScannedNumber ScanNumber(std::string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  const bool sign = text[begin] == '+' || text[begin] == '-';
  const std::string_view digits = text.substr(begin + (sign ? 1 : 0));
  // from_chars also reads "inf", "nan" and a sign of its own: none of them is a number here.
  const bool starts = !digits.empty() &&
                      (IsDigit(digits[0]) || (digits[0] == '.' && digits.size() > 1 && IsDigit(digits[1])));
  if (!starts) return {};
  double value = 0.0;
  const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const auto length = static_cast<std::size_t>(end - digits.data()) + (sign ? 1 : 0);
  if (problem == std::errc::result_out_of_range) {
    // Out of range also means "too small", which is 0 as far as anybody can tell.
    const std::string_view number = digits.substr(0, length);
    const auto mark = number.find_first_of("eE");
    const bool tiny = mark != std::string_view::npos ? number.substr(mark + 1, 1) == "-"
                                                     : number.find_first_of("123456789") > number.find('.');
    if (!tiny) throw RunTimeError(fault::kOverflow);
    value = 0.0;
  }
  return {text[begin] == '-' ? -value : value, begin, length};
}

double LeadingNumber(std::string_view text) { return ScanNumber(text).Value; }

std::string WithDecimalPoint(std::string_view typed) {
  std::string text(typed);
  const auto comma = text.find(',');
  if (comma == std::string::npos || text.find('.') < comma) return text;
  const bool digitsBehind = comma + 1 < text.size() && IsDigit(text[comma + 1]);
  const bool digitsBefore = comma > 0 && IsDigit(text[comma - 1]);
  const bool beginsWithIt = text.find_first_not_of(" \t+-") == comma;
  if (digitsBehind && (digitsBefore || beginsWithIt)) text[comma] = '.';
  return text;
}

double TypedNumber(std::string_view text) {
  try {
    return LeadingNumber(WithDecimalPoint(text));
  } catch (const RunTimeError&) {
    return std::numeric_limits<double>::infinity();
  }
}

double WholeNumberText(std::string_view text) {
  const ScannedNumber number = ScanNumber(text);
  const std::string_view rest = number.Length == 0 ? text : text.substr(number.Begin + number.Length);
  const bool onlyBlanks = rest.find_first_not_of(kBlanks) == std::string_view::npos;
  if (number.Length == 0 || !onlyBlanks) throw RunTimeError(fault::kTypeMismatch);
  return number.Value;
}

std::string SingleText(float value) { return SignedText(value, ""); }

std::string SignedPlaceText(float value) { return (value < 0 ? "" : " ") + SingleText(value); }

std::string StoreText(float value) { return SignedText(value, "0"); }

std::string FixedText(double value, int decimals) {
  char buffer[512];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  return std::string(buffer, end);
}

}  // namespace lobegraph
