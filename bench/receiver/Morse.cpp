#include "bench/receiver/Morse.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numbers>
#include <string_view>

namespace lobegraph {
namespace {

constexpr double kSecondsPerDot = 1.2;
constexpr double kEdgeSeconds = 0.005;

constexpr std::array<std::string_view, 36> kCodes{
    ".-",   "-...", "-.-.",  "-..",   ".",     "..-.",  "--.",   "....",  "..",    ".---",  "-.-",   ".-..",
    "--",   "-.",   "---",   ".--.",  "--.-",  ".-.",   "...",   "-",     "..-",   "...-",  ".--",   "-..-",
    "-.--", "--..", "-----", ".----", "..---", "...--", "....-", ".....", "-....", "--...", "---..", "----."};

std::string_view CodeOf(char character) {
  const auto letter = static_cast<unsigned char>(character);
  if (std::isdigit(letter) != 0) return kCodes[26U + letter - '0'];
  if (std::isalpha(letter) != 0) return kCodes[static_cast<std::size_t>(std::toupper(letter) - 'A')];
  return "";
}

}  // namespace

MorseKey::MorseKey(std::string_view text, double wordsPerMinute)
    : dotSeconds_(kSecondsPerDot / wordsPerMinute) {
  for (const char character : text) {
    const std::string_view code = CodeOf(character);
    for (const char stroke : code) {
      dots_.insert(dots_.end(), stroke == '-' ? 3 : 1, true);
      dots_.push_back(false);
    }
    // Between letters three dots, between words seven, one of them is there already.
    dots_.insert(dots_.end(), code.empty() ? 4 : 2, false);
  }
  dots_.insert(dots_.end(), 4, false);
}

double MorseKey::At(double seconds) const {
  const double place = seconds / dotSeconds_;
  const auto count = static_cast<double>(dots_.size());
  const auto dot = static_cast<std::size_t>(std::fmod(place, count));
  if (!dots_[dot]) return 0.0;
  const double sinceBegin = (place - std::floor(place)) * dotSeconds_;
  const bool begins = !dots_[(dot + dots_.size() - 1) % dots_.size()];
  const bool ends = !dots_[(dot + 1) % dots_.size()];
  double edge = 1.0;
  if (begins) edge = std::min(edge, sinceBegin / kEdgeSeconds);
  if (ends) edge = std::min(edge, (dotSeconds_ - sinceBegin) / kEdgeSeconds);
  return 0.5 - 0.5 * std::cos(std::numbers::pi * edge);
}

}  // namespace lobegraph
