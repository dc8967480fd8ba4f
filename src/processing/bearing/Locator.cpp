#include "processing/bearing/Locator.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <numbers>
#include <vector>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"
#include "processing/bearing/Angles.h"

namespace lobegraph {
namespace {

constexpr double kEarthKm = 6371.0;  ///< mean radius
constexpr double kRadians = std::numbers::pi / 180;
constexpr double kSamePointKm = 0.001;
constexpr std::size_t kLongestLocator = 10;

std::string UpperWord(std::string_view text) {
  std::string word(text);
  std::transform(word.begin(), word.end(), word.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return word;
}

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), blank) - text.begin());
    if (end > at) words.push_back(UpperWord(text.substr(at, end - at)));
    at = end + 1;
  }
  return words;
}

/// How the characters of each pair count: 18 letters, then digits and 24 letters in turn.
struct Pair {
  char First;
  int Count;
};
Pair PairAt(std::size_t pair) {
  if (pair == 0) return {'A', 18};
  return pair % 2 == 1 ? Pair{'0', 10} : Pair{'A', 24};
}

std::optional<GlobePoint> CentreOf(const std::string& locator) {
  if (locator.size() < 4 || locator.size() > kLongestLocator || locator.size() % 2 != 0) return std::nullopt;
  double longitude = 0, latitude = 0, width = 360;  // the latitude's is half of it
  for (std::size_t pair = 0; pair < locator.size() / 2; ++pair) {
    const auto [first, count] = PairAt(pair);
    const int east = locator[2 * pair] - first, north = locator[2 * pair + 1] - first;
    if (east < 0 || east >= count || north < 0 || north >= count) return std::nullopt;
    width /= count;
    longitude += east * width;
    latitude += north * width / 2;
  }
  return GlobePoint{latitude + width / 4 - 90, longitude + width / 2 - 180};
}

std::optional<double> NumberOf(const std::string& word) {
  try {
    return WholeNumberText(word);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<GlobePoint> LocatorCentre(std::string_view locator) {
  const std::vector<std::string> words = WordsOf(locator);
  return words.size() == 1 ? CentreOf(words.front()) : std::nullopt;
}

std::optional<GlobeWay> WayBetween(const GlobePoint& from, const GlobePoint& to) {
  const double north1 = from.LatitudeDeg * kRadians, north2 = to.LatitudeDeg * kRadians;
  const double east = (to.LongitudeDeg - from.LongitudeDeg) * kRadians;
  const double x = std::cos(north1) * std::sin(north2) - std::sin(north1) * std::cos(north2) * std::cos(east);
  const double y = std::sin(east) * std::cos(north2);
  const double z = std::sin(north1) * std::sin(north2) + std::cos(north1) * std::cos(north2) * std::cos(east);
  const double across = std::hypot(x, y);
  if (across * kEarthKm < kSamePointKm) return std::nullopt;
  return GlobeWay{WithinTurn(std::atan2(y, x) / kRadians), kEarthKm * std::atan2(across, z)};
}

std::optional<SignalBearing> ReadSignalBearing(std::string_view text) {
  std::vector<std::string> words = WordsOf(text);
  if (words.size() == 3 && words[1] == "TO") words.erase(words.begin() + 1);
  if (words.size() == 1) {
    const auto deg = NumberOf(words[0]);
    if (!deg || std::abs(*deg) > kTurnDeg) return std::nullopt;
    return SignalBearing{WithinTurn(*deg), "typed"};
  }
  if (words.size() != 2) return std::nullopt;
  const auto from = CentreOf(words[0]), to = CentreOf(words[1]);
  const auto way = from && to ? WayBetween(*from, *to) : std::nullopt;
  if (!way) return std::nullopt;
  return SignalBearing{way->BearingDeg,
                       "from " + words[0] + " to " + words[1] + ", " + FixedText(way->Km, 0) + " km"};
}

}  // namespace lobegraph
