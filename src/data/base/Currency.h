#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace lobegraph {

/// A fixed-point decimal of four places, held as ten-thousandths: 0.25 is exactly 0.25, whatever is done to
/// it.
class Currency {
 public:
  constexpr Currency() = default;
  static constexpr Currency FromTenThousandths(std::int64_t value) {
    Currency result;
    result.tenThousandths_ = value;
    return result;
  }
  /// The leading number of a text (see LeadingNumber), decimal digit by decimal digit, the fifth place
  /// rounded (halves to even); 0 when there is none.
  /// @throws RunTimeError 6 (Overflow) beyond the range of 64 bits.
  static Currency FromText(std::string_view text);

  constexpr std::int64_t TenThousandths() const { return tenThousandths_; }
  constexpr double ToDouble() const { return static_cast<double>(tenThousandths_) / 10000.0; }
  /// Shortest decimal text with a point: "0.25", "7", "-0.01".
  std::string ToText() const;

  constexpr auto operator<=>(const Currency&) const = default;

 private:
  std::int64_t tenThousandths_ = 0;
};

}  // namespace lobegraph
