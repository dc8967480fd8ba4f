#include "processing/FigureList.h"

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

using Value = std::optional<double>;

std::string With(const Value& value, const char* unit, int decimals) {
  return value ? FixedText(*value, decimals) + unit : kNoFigure;
}
std::string Degrees(const Value& value) { return With(value, " degrees", 1); }
std::string Decibels(const Value& value) { return With(value, " dB", 1); }
std::string Gain(const Value& value) { return With(value, " dBi", 2); }

std::vector<FigureRow> BeamRows(const CutFigures& figures) {
  return {
      {"Beamwidth", Degrees(figures.Hpbw),
       "Between the directions on both sides of the peak where the level first falls below -3 dB, "
       "interpolated."},
      {"Beamwidth at -10 dB", Degrees(figures.Hpbw10), "The same where it first falls below -10 dB."},
      {"Between first nulls", Degrees(figures.Fnbw),
       "Between the first minima on both sides that are at least 3 dB below their lobes."},
      {"Bearing of the peak", Degrees(figures.PeakBearing),
       "The top of the parabola through the strongest reading and its two neighbours."},
      {"Centre of the beam", Degrees(figures.BeamCentre), "The middle between the two -3 dB directions."},
      {"Squint", Degrees(figures.Squint), "The centre of the beam as an angle from the top of the plot."}};
}

std::vector<FigureRow> RearRows(const CutFigures& figures) {
  return {{"Front to back", Decibels(figures.FrontToBack), "The peak against the level exactly opposite."},
          {"Front to rear", Decibels(figures.FrontToRear),
           "The peak against the strongest level from 90 to 270 degrees of it: the worst case."},
          {"Front to rear sector", Decibels(figures.FrontToRearSector),
           "The peak against the strongest level from 150 to 210 degrees of it."},
          {"Front to side", Decibels(figures.FrontToSide),
           "The peak against the stronger of the levels at 90 and 270 degrees of it."},
          {"Side lobe", Decibels(figures.SideLobeLevel),
           "The strongest lobe besides the main one, the rear lobe included."},
          {"Bearing of the side lobe", Degrees(figures.SideLobeAngle), "Where that lobe is strongest."},
          {"Ripple", Decibels(figures.Ripple), "The strongest level against the weakest."},
          {"Closure", Decibels(figures.Closure),
           "Where the end of the turn arrives against its start: 0 for a turn that closes."}};
}

std::vector<FigureRow> GainRows(const DirectivityEstimates& gains) {
  return {
      {"Directivity, Kraus", Gain(gains.Kraus),
       "41253 / (a b) of two beamwidths, the second one assumed: for one narrow lobe without minor lobes."},
      {"Directivity, Tai and Pereira", Gain(gains.TaiPereira),
       "72815 / (a a + b b) of the same: for planes of different width."},
      {"Directivity, integrated", Gain(gains.Integrated),
       "By integration over the turn: for patterns that look alike in every plane through the beam."}};
}

}  // namespace

std::vector<FigureRow> FigureRows(const CutFigures& figures) {
  std::vector<FigureRow> rows = BeamRows(figures);
  for (const auto& part : {RearRows(figures), GainRows(figures.Directivity)})
    rows.insert(rows.end(), part.begin(), part.end());
  return rows;
}

std::string FigureText(const std::vector<FigureRow>& rows) {
  std::string text;
  for (const FigureRow& row : rows) text += row.Name + '\t' + row.Value + '\n';
  return text;
}

}  // namespace lobegraph
