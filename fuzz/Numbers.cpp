#include "data/base/Numbers.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "data/base/Currency.h"
#include "data/base/RunTimeError.h"
#include "data/table/PatternTable.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

/// The standard library's opinion of the same characters; none where it has another range.
std::optional<double> Reference(std::string_view digits) {
  if (digits.starts_with('+')) digits.remove_prefix(1);
  double value = 0;
  const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (problem != std::errc()) return std::nullopt;
  Promise(end == digits.data() + digits.size(), "a scanned number is one from end to end");
  return value;
}

void PromiseText(double value) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single) || std::abs(single) < 1e-30F) return;
  for (const std::string& text : {SingleText(single), StoreText(single), SignedPlaceText(single)}) {
    const double back = WholeNumberText(text);
    Promise(std::abs(back - static_cast<double>(single)) <= 1e-6 * std::abs(back),
            "a number's text is that number");
  }
}

template <typename Function>
void MayRefuse(Function function) {
  try {
    function();
  } catch (const RunTimeError&) {
    return;
  }
}

}  // namespace

void TryNumbers(std::string_view input) {
  MayRefuse([&] {
    const ScannedNumber number = ScanNumber(input);
    Promise(number.Begin + number.Length <= input.size(), "a number lies within its text");
    if (number.Length == 0) return Promise(number.Value == 0, "no number is 0");
    const std::optional<double> reference = Reference(input.substr(number.Begin, number.Length));
    Promise(!reference || *reference == number.Value, "a number has its value");
    PromiseText(number.Value);
    Promise(LeadingNumber(input) == number.Value, "a text begins with its number");
  });
  MayRefuse([&] { Promise(std::isfinite(WholeNumberText(input)), "a whole text is a finite number"); });
  MayRefuse([&] {
    const Currency money = Currency::FromText(input);
    Promise(Currency::FromText(money.ToText()) == money, "a fixed-point text is that number");
  });
  if (const std::optional<double> number = NumberIn(input))
    Promise(std::isfinite(*number), "a number in a table is finite");
}

}  // namespace lobegraph::fuzz
