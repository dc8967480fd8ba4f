#include "data/formats/ModelTable.h"

#include <algorithm>
#include <limits>
#include <map>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::size_t kFewestPoints = 8;
constexpr std::size_t kMostCuts = 100'000;
constexpr double kNoGainDb = -90.0;
constexpr std::string_view kNecHeading = "RADIATION PATTERNS";
constexpr std::string_view kFarFieldHeading = "Tot dB";

bool Contains(std::string_view line, std::string_view words) {
  return line.find(words) != std::string_view::npos;
}

bool IsHeading(std::string_view line) {
  return Contains(line, kNecHeading) || Contains(line, kFarFieldHeading);
}

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// The leading numbers of a line, at most five: what stands behind may be blank and would shift.
std::vector<double> LeadingNumbers(std::string_view line) {
  std::vector<double> numbers;
  for (const std::string_view word : WordsOf(line)) {
    const auto number = NumberIn(word);
    if (!number || numbers.size() == 5) break;
    numbers.push_back(*number);
  }
  return numbers;
}

/// "FREQUENCY : 1.4100E+01 MHz" and "FREQUENCY= 1.41E+01 MHZ"
std::optional<double> FrequencyIn(std::string_view line) {
  const auto words = WordsOf(line, " \t:=");
  for (std::size_t i = 0; i + 1 < words.size(); ++i)
    if (words[i] == "FREQUENCY" || words[i] == "Frequency") return NumberIn(words[i + 1]);
  return std::nullopt;
}

/// A direction of a model: theta from the zenith, phi counter-clockwise.
struct Direction {
  double Theta = 0.0;
  double Phi = 0.0;
  double TotalDb = 0.0;
};

/// What is known of each cut before its points are gathered, by its theta or phi.
struct CutSize {
  std::size_t Points = 0;
  double StrongestDb = -std::numeric_limits<double>::infinity();
  auto operator<=>(const CutSize&) const = default;
};
using Cuts = std::map<double, CutSize>;

void Count(Cuts& cuts, double at, double levelDb) {
  CutSize& cut = cuts[at];
  ++cut.Points;
  cut.StrongestDb = std::max(cut.StrongestDb, levelDb);
  if (cuts.size() > kMostCuts) throw RunTimeError(fault::kTypeMismatch, "too many cuts");
}

/// The longest cut; among several the one with the strongest level.
std::optional<double> BestOf(const Cuts& cuts) {
  const auto best = std::max_element(cuts.begin(), cuts.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  if (best == cuts.end() || best->second.Points < kFewestPoints) return std::nullopt;
  return best->first;
}

/// Takes a model's text off its lines. The table of a whole sphere may hold more than fits into memory: its
/// cuts are counted first, and the chosen one is fetched by reading again.
class Reader {
 public:
  explicit Reader(TextLines& lines) : lines_(lines) {}

  PatternTable Read() {
    auto line = Next();
    while (line && table_.Points.empty()) {
      if (const auto frequency = FrequencyIn(*line)) table_.FrequencyMHz = frequency;
      if (Contains(*line, "Elevation Pattern")) azimuth_ = false;
      if (Contains(*line, kNecHeading))
        line = TakeNec();
      else
        line = Contains(*line, kFarFieldHeading) ? TakeFarField() : Next();
    }
    return std::move(table_);
  }

 private:
  std::optional<std::string_view> Next() {
    ++passed_;
    return lines_.Next();
  }

  /// Gives the rows below a heading to `take`. @return the first line behind them, or another heading
  template <typename Take>
  std::optional<std::string_view> TakeDirections(const Take& take) {
    bool begun = false;
    for (auto line = Next(); line; line = Next()) {
      const auto numbers = LeadingNumbers(*line);
      const bool row = numbers.size() == 5;
      if (!row && (begun || IsHeading(*line))) return line;
      if (row) take({numbers[0], numbers[1], numbers[4]});
      begun = begun || row;
    }
    return std::nullopt;
  }

  /// @return the first line behind a table without a pattern
  std::optional<std::string_view> TakeNec() {
    const std::size_t heading = passed_;
    Cuts azimuth;
    Cuts elevation;
    const auto behind = TakeDirections([&](const Direction& direction) {
      Count(azimuth, direction.Theta, direction.TotalDb);
      Count(elevation, direction.Phi, direction.TotalDb);
    });
    if (const auto theta = BestOf(azimuth))
      return Gather(heading, [&](const Direction& direction) {
        if (direction.Theta == *theta) AddPoint(table_.Points, {-direction.Phi, direction.TotalDb});
      });
    if (const auto phi = BestOf(elevation))
      return Gather(heading, [&](const Direction& direction) {
        if (direction.Phi == *phi) AddPoint(table_.Points, {direction.Theta, direction.TotalDb});
      });
    return behind;
  }

  /// The rows below a heading that was passed, once more.
  template <typename Take>
  std::optional<std::string_view> Gather(std::size_t heading, const Take& take) {
    lines_.Restart();
    for (passed_ = 0; passed_ < heading;) Next();
    return TakeDirections(take);
  }

  /// Rows "Deg V H Tot ..." up to a blank line; an elevation angle counts from the horizon up.
  std::optional<std::string_view> TakeFarField() {
    for (auto line = Next(); line; line = Next()) {
      const auto numbers = LeadingNumbers(*line);
      if (numbers.size() < 4) return line;
      AddPoint(table_.Points, {azimuth_ ? -numbers[0] : 90.0 - numbers[0], numbers[3]});
    }
    return std::nullopt;
  }

  TextLines& lines_;
  PatternTable table_;
  std::size_t passed_ = 0;
  bool azimuth_ = true;
};

}  // namespace

PatternTable ReadModelTable(TextLines& lines) {
  PatternTable table = Reader(lines).Read();
  if (table.Points.size() < kFewestPoints) throw RunTimeError(fault::kTypeMismatch, "no radiation pattern");
  for (const TablePoint& point : table.Points)
    table.GainDbi = std::max(table.GainDbi.value_or(-1e9), point.LevelDb);
  for (TablePoint& point : table.Points)
    if (point.LevelDb < kNoGainDb) point.LevelDb = *table.GainDbi + kFaintestDb;
  return table;
}

bool LooksLikeModelTable(TextLines& lines) {
  while (const auto line = lines.Next())
    if (IsHeading(*line)) return true;
  return false;
}

bool LooksLikeModelDeck(TextLines& lines) {
  auto line = lines.Next();
  while (line && Trimmed(*line).empty()) line = lines.Next();
  const auto words = WordsOf(line.value_or(""), " \t\r,");
  if (words.empty()) return false;
  std::string card(words.front());
  std::transform(card.begin(), card.end(), card.begin(), UpperAscii);
  return card == "CM" || card == "CE" || card == "GW";
}

}  // namespace lobegraph
