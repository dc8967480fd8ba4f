#include "processing/Figures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "processing/Beamwidth.h"
#include "processing/PlotRange.h"

namespace lobegraph {
namespace {

constexpr int kFewestSamples = 3;
constexpr double kNullDepthDb = 3.0;
constexpr double kLobeProminenceDb = 1.0;
constexpr double kRearHalfDeg = 90.0;
constexpr double kRearSectorDeg = 30.0;

/// The cut seen from its strongest sample: offsets in samples, positive clockwise.
class FromPeak {
 public:
  explicit FromPeak(const PatternCut& cut)
      : cut_(cut),
        count_(static_cast<int>(cut.LevelDb.size())),
        peak_(static_cast<int>(std::max_element(cut.LevelDb.begin(), cut.LevelDb.end()) -
                               cut.LevelDb.begin())) {}

  int Count() const { return count_; }
  bool FullTurn() const { return cut_.FullTurn; }
  /// How far a walk can go in one direction (1 or -1): the turn, or to the cut's end.
  int Reach(int direction) const {
    if (cut_.FullTurn) return count_ - 1;
    return direction > 0 ? count_ - 1 - peak_ : peak_;
  }
  double At(int offset) const {
    const int index = (peak_ + offset) % count_;
    return cut_.LevelDb[static_cast<std::size_t>(index < 0 ? index + count_ : index)];
  }
  /// Level between samples, a straight line in dB.
  double Between(double offset) const {
    const double below = std::floor(offset);
    const double share = offset - below;
    const int at = static_cast<int>(below);
    return share == 0.0 ? At(at) : At(at) + share * (At(at + 1) - At(at));
  }
  double Samples(double degrees) const { return degrees / cut_.StepDeg; }
  double Degrees(double offset) const { return offset * cut_.StepDeg; }
  double Bearing(double offset) const { return cut_.BearingOf(peak_ + offset); }

  /// The top of the parabola through a sample and its two neighbours: at most half a sample away.
  double TopNear(int offset) const {
    if (!cut_.FullTurn && (peak_ + offset == 0 || peak_ + offset == count_ - 1)) return offset;
    const double before = At(offset - 1);
    const double after = At(offset + 1);
    const double curvature = before - 2.0 * At(offset) + after;
    return curvature < 0.0 ? offset + (before - after) / (2.0 * curvature) : offset;
  }

 private:
  const PatternCut& cut_;
  int count_;
  int peak_;
};

/// Where the level first falls below -downDb in a direction: samples from the peak, 0 or more.
std::optional<double> Crossing(const FromPeak& cut, int direction, double downDb) {
  for (int step = 1; step <= cut.Reach(direction); ++step) {
    const double outside = cut.At(direction * step);
    if (outside >= -downDb) continue;
    const double inside = cut.At(direction * (step - 1));
    return step - 1 + (inside + downDb) / (inside - outside);
  }
  return std::nullopt;
}

struct Beam {
  double Left = 0.0;   ///< samples counter-clockwise from the peak
  double Right = 0.0;  ///< samples clockwise from it
};

std::optional<Beam> BeamAt(const FromPeak& cut, double downDb) {
  const auto left = Crossing(cut, -1, downDb);
  const auto right = Crossing(cut, 1, downDb);
  if (!left || !right) return std::nullopt;
  return Beam{*left, *right};
}

std::optional<double> WidthAt(const FromPeak& cut, double downDb) {
  const auto beam = BeamAt(cut, downDb);
  if (!beam) return std::nullopt;
  return cut.Degrees(beam->Left + beam->Right);
}

/// The first null in a direction: the lowest place before the level has risen by the depth of a null; the
/// middle of it when several equal samples lie there.
std::optional<double> FirstNull(const FromPeak& cut, int direction) {
  double lowest = 0.0;
  int first = 0;
  int last = 0;
  for (int step = 1; step <= cut.Reach(direction) + (cut.FullTurn() ? 1 : 0); ++step) {
    const double level = cut.At(direction * step);
    if (level < lowest) {
      lowest = level;
      first = last = step;
    } else if (level == lowest && last == step - 1) {
      last = step;
    }
    if (lowest <= -kNullDepthDb && level >= lowest + kNullDepthDb) return (first + last) / 2.0;
  }
  return std::nullopt;
}

std::optional<double> WidthBetweenNulls(const FromPeak& cut) {
  const auto left = FirstNull(cut, -1);
  const auto right = FirstNull(cut, 1);
  if (!left || !right) return std::nullopt;
  return cut.Degrees(*left + *right);
}

/// The strongest level within a sector, its edges included.
/// @param halfWidthDeg below 180
double StrongestAround(const FromPeak& cut, double centreDeg, double halfWidthDeg) {
  const double from = cut.Samples(centreDeg - halfWidthDeg);
  const double to = cut.Samples(centreDeg + halfWidthDeg);
  double strongest = std::max(cut.Between(from), cut.Between(to));
  for (int offset = static_cast<int>(std::ceil(from)); offset <= to; ++offset)
    strongest = std::max(strongest, cut.At(offset));
  return strongest;
}

/// The strongest lobe that rises above the valleys on both its sides by its prominence, the main one apart.
std::optional<int> SideLobe(const FromPeak& cut) {
  std::optional<int> strongest;
  double lowest = 0.0;
  int top = 0;
  bool rising = false;
  const auto step = [&](int offset) {
    const double level = cut.At(offset);
    if (!rising) {
      lowest = std::min(lowest, level);
      rising = level >= lowest + kLobeProminenceDb;
      if (rising) top = offset;
    } else if (level > cut.At(top)) {
      top = offset;
    } else if (level <= cut.At(top) - kLobeProminenceDb) {
      if (!strongest || cut.At(top) > cut.At(*strongest)) strongest = top;
      rising = false;
      lowest = level;
    }
  };
  for (int offset = 1; offset <= cut.Reach(1); ++offset) step(offset);
  if (cut.FullTurn()) return strongest;
  lowest = 0.0;
  rising = false;
  for (int offset = -1; offset >= -cut.Reach(-1); --offset) step(offset);
  return strongest;
}

/// One step further than the last reading, at the slope of the readings around the seam, against the first.
double ClosureOf(std::span<const double> levels) {
  const std::size_t last = levels.size() - 1;
  const double slope = ((levels[last] - levels[last - 1]) + (levels[1] - levels[0])) / 2.0;
  return levels[last] + slope - levels[0];
}

/// dB below the peak of a level (never a negative 0).
double Below(double levelDb) { return 0.0 - levelDb; }

double Db(double ratio) { return 10.0 * std::log10(ratio); }

/// The cut turned about the axis of its beam, both halves averaged: 4 / integral of g |sin|.
double IntegratedDirectivity(const FromPeak& cut) {
  const double step = 2.0 * std::numbers::pi / cut.Count();
  const auto power = [&](int offset) { return std::exp(cut.At(offset) * std::numbers::ln10 / 10.0); };
  double sum = 0.0;
  for (int offset = 1; 2 * offset < cut.Count(); ++offset)
    sum += (power(offset) + power(-offset)) * std::sin(offset * step);
  return Db(4.0 / (sum * step));
}

void MeasureBeam(const FromPeak& cut, CutFigures& figures) {
  figures.Hpbw = WidthAt(cut, 3.0);
  figures.Hpbw10 = WidthAt(cut, 10.0);
  figures.Fnbw = WidthBetweenNulls(cut);
  figures.PeakBearing = cut.Bearing(cut.TopNear(0));
  if (const auto beam = BeamAt(cut, 3.0)) {
    figures.BeamCentre = cut.Bearing((beam->Right - beam->Left) / 2.0);
    figures.Squint = *figures.BeamCentre > 180.0 ? *figures.BeamCentre - 360.0 : *figures.BeamCentre;
  }
  if (const auto lobe = SideLobe(cut)) {
    figures.SideLobeLevel = cut.At(*lobe);
    figures.SideLobeAngle = cut.Bearing(cut.TopNear(*lobe));
  }
}

/// What only a whole turn can tell.
void MeasureTurn(const FromPeak& cut, CutFigures& figures) {
  figures.FrontToBack = Below(cut.Between(cut.Samples(180.0)));
  figures.FrontToRear = Below(StrongestAround(cut, 180.0, kRearHalfDeg));
  figures.FrontToRearSector = Below(StrongestAround(cut, 180.0, kRearSectorDeg));
  figures.FrontToSide = Below(std::max(cut.Between(cut.Samples(90.0)), cut.Between(cut.Samples(270.0))));
  figures.Directivity.Integrated = IntegratedDirectivity(cut);
}

void EstimateFromWidths(double widthDeg, double ratio, DirectivityEstimates& estimates) {
  constexpr double kSquareDegreesOfSphere = 41253.0;
  constexpr double kTaiPereira = 72815.0;
  const double second = widthDeg * ratio;
  estimates.Kraus = Db(kSquareDegreesOfSphere / (widthDeg * second));
  estimates.TaiPereira = Db(kTaiPereira / (widthDeg * widthDeg + second * second));
}

}  // namespace

double PatternCut::BearingOf(double position) const {
  const double bearing = std::fmod(StartDeg + position * StepDeg, 360.0);
  return bearing < 0.0 ? bearing + 360.0 : bearing;
}

std::optional<PatternCut> CutOf(const ReadingsRecord& record) {
  PatternCut cut;
  const int last = record.LastPlotted();
  float strongest = 0.F;
  for (int i = record.TrimFront; i <= last; ++i) strongest = std::max(strongest, record.Readings(i));
  for (int i = record.TrimFront; i <= last; ++i) {
    if (!(record.Readings(i) > 0.F)) return std::nullopt;
    cut.LevelDb.push_back(20.0 * std::log10(static_cast<double>(record.Readings(i)) / strongest));
  }
  if (cut.LevelDb.empty()) return std::nullopt;
  cut.FullTurn = !record.Plot180;
  cut.StepDeg = (record.Plot180 ? 180.0 : 360.0) / static_cast<double>(cut.LevelDb.size());
  cut.StartDeg = static_cast<double>(record.Plot180 ? 270.F : record.Rotate);
  return cut;
}

CutFigures FiguresOfCut(const PatternCut& cut, std::optional<double> elementRatio) {
  CutFigures figures;
  if (cut.LevelDb.size() < kFewestSamples) return figures;
  const FromPeak fromPeak(cut);
  MeasureBeam(fromPeak, figures);
  figures.Ripple = Below(*std::min_element(cut.LevelDb.begin(), cut.LevelDb.end()));
  if (cut.FullTurn) {
    MeasureTurn(fromPeak, figures);
    figures.Closure = ClosureOf(cut.LevelDb);
  }
  if (figures.Hpbw && elementRatio) EstimateFromWidths(*figures.Hpbw, *elementRatio, figures.Directivity);
  return figures;
}

CutFigures FiguresOfRecord(const ReadingsRecord& record) {
  const auto cut = CutOf(record);
  if (!cut) return {};
  return FiguresOfCut(*cut, ElementRatioOf(record.Elements, record.PolarizationHorizontal));
}

}  // namespace lobegraph
