#include "data/base/Currency.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr int kPlaces = 4;
constexpr std::int64_t kFurthestShift = 100'000'000;  // of the point; more digits than any text has

/// Adds one decimal digit at the end. @throws RunTimeError 6 when 64 bits are full.
std::int64_t Append(std::int64_t value, int digit) {
  if (value > (std::numeric_limits<std::int64_t>::max() - digit) / 10) throw RunTimeError(fault::kOverflow);
  return value * 10 + digit;
}

/// The digits of a scanned number without sign and point, and where the point stands after the exponent was
/// applied.
struct Digits {
  std::string Text;
  int Point = 0;
};

/// The number behind the mark, held where further powers of ten make no difference.
int Exponent(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (problem == std::errc::result_out_of_range)
    value = text.front() == '-' ? -kFurthestShift : kFurthestShift;
  return static_cast<int>(std::clamp(value, -kFurthestShift, kFurthestShift));
}

Digits Split(std::string_view number) {
  const auto mark = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, mark);
  Digits result;
  const auto point = mantissa.find('.');
  for (const char c : mantissa)
    if (c >= '0' && c <= '9') result.Text += c;
  const bool sign = mantissa.front() == '+' || mantissa.front() == '-';
  result.Point = static_cast<int>(point == std::string_view::npos ? mantissa.size() : point) - (sign ? 1 : 0);
  if (mark != std::string_view::npos) result.Point += Exponent(number.substr(mark + 1));
  return result;
}

/// What the dropped digits do to the last kept one: halves go to the even neighbour.
bool RoundsUp(std::string_view dropped, bool lastKeptIsOdd) {
  if (dropped.empty() || dropped[0] < '5') return false;
  const bool half = dropped[0] == '5' && dropped.find_first_not_of('0', 1) == std::string_view::npos;
  return !half || lastKeptIsOdd;
}

}  // namespace

Currency Currency::FromText(std::string_view text) {
  const ScannedNumber number = ScanNumber(text);
  if (number.Length == 0) return {};
  const Digits digits = Split(text.substr(number.Begin, number.Length));
  const int keep = digits.Point + kPlaces;
  std::int64_t value = 0;
  for (int i = 0; i < keep; ++i) {
    const bool given = i < static_cast<int>(digits.Text.size());
    if (!given && value == 0) break;  // 0E+99 is 0
    value = Append(value, given ? digits.Text[static_cast<std::size_t>(i)] - '0' : 0);
  }
  if (keep >= 0 && keep < static_cast<int>(digits.Text.size()) &&
      RoundsUp(std::string_view(digits.Text).substr(static_cast<std::size_t>(keep)), value % 2 != 0)) {
    if (value == std::numeric_limits<std::int64_t>::max()) throw RunTimeError(fault::kOverflow);
    ++value;
  }
  return FromTenThousandths(text[number.Begin] == '-' ? -value : value);
}

std::string Currency::ToText() const {
  const bool negative = tenThousandths_ < 0;
  std::string digits = std::to_string(negative ? -tenThousandths_ : tenThousandths_);
  if (digits.size() <= kPlaces) digits.insert(0, kPlaces + 1 - digits.size(), '0');
  const std::size_t point = digits.size() - kPlaces;
  std::string fraction = digits.substr(point);
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  return (negative ? "-" : "") + digits.substr(0, point) + (fraction.empty() ? "" : "." + fraction);
}

}  // namespace lobegraph
