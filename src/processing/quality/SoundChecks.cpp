#include "processing/quality/SoundChecks.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "processing/quality/Indices.h"

namespace lobegraph {
namespace {

constexpr double kMuchLost = 0.2;
constexpr int kMostFilled = 5;  ///< readings in a row
constexpr int kFewLate = 18;    ///< a twentieth of a turn
constexpr const char* kBusy = "Close what else is busy on this computer, and take the turn again.";

bool MuchLost(const ReadingDetail& detail) {
  return static_cast<double>(detail.Missing) > kMuchLost * static_cast<double>(detail.Samples);
}

std::string SlowerText(double turnSeconds, int longestPause) {
  if (!(turnSeconds > 0.0)) return "Turn the rotator more slowly.";
  const double seconds = std::ceil(turnSeconds * longestPause / kMostFilled);
  return "Turn the rotator in " + FixedText(seconds, 0) + " s or slower.";
}

}  // namespace

QualityItem CheckLost(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Lost};
  if (!turn.SoundKnown()) return std::move(item).Judged("not measured", Verdict::NotKnown);
  item.Arcs = ArcsWhere(turn, [&](std::size_t i) { return turn.DetailOf(i).Missing > 0; });
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("none", Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  const Verdict found = std::ranges::any_of(turn.Details, MuchLost) ? Verdict::Bad : Verdict::Doubtful;
  return std::move(item).Blamed(where, found, "Sound was lost in " + where + ".", kBusy);
}

QualityItem CheckTone(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Tone};
  std::vector<double> hertz;
  for (const ReadingDetail& detail : turn.Details)
    if (detail.ToneHz) hertz.push_back(*detail.ToneHz);
  item.Arcs =
      ArcsWhere(turn, [&](std::size_t i) { return turn.DetailOf(i).NoTone || turn.DetailOf(i).ToneLeft; });
  std::string value = "none";
  if (!hertz.empty()) {
    item.Number = MedianOf(hertz);
    value = FixedText(std::ranges::min(hertz), 0) + " to " + FixedText(std::ranges::max(hertz), 0) + " Hz";
  }
  if (item.Arcs.empty())
    return std::move(item).Judged(value, hertz.empty() ? Verdict::NotKnown : Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  return std::move(item).Blamed(
      value, Verdict::Bad, "The tone was out of reach in " + where + ".",
      "Calibrate on the beam so that the tone is found, let the receiver warm up, and take the turn again.");
}

QualityItem CheckKey(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Key};
  item.Arcs = ArcsWhere(turn, [&](std::size_t i) { return turn.DetailOf(i).KeyUp; });
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("no pauses", Verdict::Good);
  std::string value = "filled: " + ArcText(item.Arcs);
  if (turn.WordsPerMinute) value += " (" + FixedText(*turn.WordsPerMinute, 0) + " words a minute)";
  const int longest = std::ranges::max(item.Arcs, {}, &Arc::Count).Count();
  if (longest <= kMostFilled) return std::move(item).Judged(value, Verdict::Good);
  return std::move(item).Blamed(value, Verdict::Doubtful,
                                "The key was up for " + std::to_string(longest) + " readings in a row.",
                                SlowerText(turn.TurnSeconds, longest));
}

QualityItem CheckSilence(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Silence};
  item.Arcs = ArcsOf(turn.Silent);
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("none", Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  return std::move(item).Blamed(where, Verdict::Bad, "The source had nothing new to say in " + where + ".",
                                "Check the source and its cable, and take the turn again.");
}

QualityItem CheckLate(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Late};
  item.Arcs = ArcsOf(turn.Late);
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("none", Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  const Verdict found = CountOf(item.Arcs) <= kFewLate ? Verdict::Doubtful : Verdict::Bad;
  return std::move(item).Blamed(where, found, "The turn was late in " + where + ".", kBusy);
}

}  // namespace lobegraph
