#include "acquisition/rotator/LineWords.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace lobegraph {
namespace {

constexpr int kMostWhole = 1'000'000'000;

}  // namespace

std::string_view LineWords::Word() {
  const std::size_t end = std::min(rest_.find(' '), rest_.size());
  const std::string_view word = rest_.substr(0, end);
  if (word.empty() || end + 1 == rest_.size()) Wrong();  // no word, or a blank with nothing behind it
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return word;
}

int LineWords::Whole() {
  const std::string_view word = Word();
  int value = 0;
  const auto [end, problem] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (problem != std::errc() || end != word.data() + word.size() || value < 0 || value > kMostWhole) Wrong();
  return value;
}

double LineWords::Number(double lowest, double highest) {
  const std::string_view word = Word();
  double value = 0;
  const auto [end, problem] =
      std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::fixed);
  if (problem != std::errc() || end != word.data() + word.size()) Wrong();
  if (!(value >= lowest && value <= highest)) Wrong();
  return value;
}

std::string_view LineWords::Rest() { return std::exchange(rest_, {}); }

}  // namespace lobegraph
