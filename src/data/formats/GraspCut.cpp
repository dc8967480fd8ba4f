#include "data/formats/GraspCut.h"

#include <cmath>
#include <tuple>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::size_t kFewestPoints = 8;
constexpr double kMostPoints = 1e6;
constexpr int kTotalPower = 9;
constexpr int kFirstRatio = 5;
/// Far below any other: a field of nothing.
constexpr double kNoFieldDb = -10'000.0;

/// The line of numbers in front of a cut.
struct Head {
  double First = 0.0;
  double Step = 0.0;
  std::size_t Points = 0;
  int Component = 0;  ///< ICOMP
  bool Conical = false;
  std::size_t Fields = 0;  ///< NCOMP
};

[[noreturn]] void Refuse(const char* why) { throw RunTimeError(fault::kTypeMismatch, why); }

std::vector<double> NumbersOf(std::string_view line) {
  std::vector<double> numbers;
  for (const std::string_view word : WordsOf(line)) {
    const auto number = NumberIn(word);
    if (!number) return {};
    numbers.push_back(*number);
  }
  return numbers;
}

/// A whole number from `least` to `most`. @throws RunTimeError 13
double Whole(double value, double least, double most) {
  if (value < least || value > most || value != std::floor(value)) Refuse("no cut");
  return value;
}

Head HeadOf(std::string_view line) {
  const auto numbers = NumbersOf(line);
  if (numbers.size() < 7) Refuse("no cut");
  Head head{numbers[0], numbers[1]};
  head.Points = static_cast<std::size_t>(Whole(numbers[2], 1, kMostPoints));
  head.Component = static_cast<int>(Whole(numbers[4], 1, kTotalPower));
  head.Conical = Whole(numbers[5], 1, 2) == 2;
  head.Fields = static_cast<std::size_t>(Whole(numbers[6], 1, 3));
  if (head.Component >= kFirstRatio && head.Component != kTotalPower) Refuse("components that are ratios");
  return head;
}

double DbOf(double real, double imaginary) {
  const double magnitude = std::hypot(real, imaginary);
  return magnitude > 0.0 ? 20.0 * std::log10(magnitude) : kNoFieldDb;
}

/// One component of a cut.
struct Cut {
  bool Conical = false;
  std::vector<TablePoint> Points = {};
  double StrongestDb = kNoFieldDb;

  void Add(double angleDeg, double levelDb) {
    AddPoint(Points, {angleDeg, levelDb});
    StrongestDb = std::max(StrongestDb, levelDb);
  }
  auto Rank() const { return std::tuple(Conical, Points.size(), StrongestDb); }
};

/// The component that counts. @throws RunTimeError 13, 62
Cut ReadCut(const Head& head, TextLines& lines) {
  Cut first{head.Conical}, second{head.Conical};
  for (std::size_t i = 0; i < head.Points; ++i) {
    const auto line = lines.Next();
    if (!line) throw RunTimeError(fault::kInputPastEnd, "a cut that breaks off");
    const auto numbers = NumbersOf(*line);
    if (numbers.size() < 2 * head.Fields) Refuse("a line of a cut without its numbers");
    const double at = head.First + static_cast<double>(i) * head.Step;
    const double angleDeg = head.Conical ? -at : at;
    first.Add(angleDeg, DbOf(numbers[0], numbers[1]));
    if (head.Fields > 1) second.Add(angleDeg, DbOf(numbers[2], numbers[3]));
  }
  const bool takeSecond = head.Component != kTotalPower && second.StrongestDb > first.StrongestDb;
  return takeSecond ? second : first;
}

}  // namespace

PatternTable ReadGraspCut(TextLines& lines) {
  PatternTable table;
  Cut best;
  std::optional<std::string> title;
  while (const auto line = lines.Next()) {
    const bool blank = Trimmed(*line).empty();
    if (!title) {
      title = Trimmed(*line);
    } else if (!blank || !title->empty()) {  // a blank title may be followed by nothing at all
      Cut cut = ReadCut(HeadOf(*line), lines);
      if (cut.Rank() > best.Rank()) {
        best = std::move(cut);
        table.Name = *title;
      }
      title.reset();
    }
  }
  if (title && !title->empty()) throw RunTimeError(fault::kInputPastEnd, "a cut that breaks off");
  if (best.Points.size() < kFewestPoints) Refuse("no cut");
  table.Points = std::move(best.Points);
  return table;
}

}  // namespace lobegraph
