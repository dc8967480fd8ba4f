#include "processing/exchange/WritePattern.h"

#include <cmath>

#include "data/base/RunTimeError.h"
#include "data/base/TextEncoding.h"
#include "processing/Figures.h"
#include "processing/PreparePlot.h"

namespace lobegraph {
namespace {

constexpr int kWholeTurn = 360;
constexpr const char* kNoRange = "no reading is left to draw";
constexpr const char* kNoLevel = "no level is above 0, so that nothing can be drawn";

/// A pattern, and what its plot says of it.
struct Settled {
  ReadingsRecord Record;
  PlotResult Plot;
};

float StrongestOf(const ReadingsRecord& record) {
  float strongest = 0.F;
  for (int i = record.TrimFront; i <= record.LastPlotted(); ++i)
    strongest = std::max(strongest, record.Readings(i));
  return strongest;
}

/// The plot settles peak, trims and step.
Settled Settle(const ReadingsRecord& record) {
  Settled settled{record, {}};
  const PatternRules rules{.AnyLength = true};
  try {
    settled.Plot = BeginPlot(settled.Record, PlacementOf(record), {}, rules);
    if (settled.Plot.FieldsSettled) CompletePlot(settled.Record, {}, rules, settled.Plot);
  } catch (const RunTimeError&) {
    settled.Plot.PlotDone = false;
  }
  if (!settled.Plot.FieldsSettled)
    throw RunTimeError(fault::kTypeMismatch, Advice{settled.Plot.Message.value_or(kNoRange)});
  if (StrongestOf(settled.Record) <= 0.F) throw RunTimeError(fault::kTypeMismatch, Advice{kNoLevel});
  return settled;
}

/// Each plotted reading with its bearing.
std::vector<LevelRow> RowsOf(const Settled& settled) {
  const ReadingsRecord& record = settled.Record;
  const float strongest = StrongestOf(record);
  std::vector<LevelRow> rows;
  for (int i = record.TrimFront; i <= record.LastPlotted(); ++i) {
    const double position = (i - record.TrimFront) * double{settled.Plot.DegreesPerReading};
    const float level = record.Readings(i);
    const double db = level > 0.F ? 20.0 * std::log10(double{level} / double{strongest}) : kFaintestDb;
    rows.push_back({i, std::fmod(double{record.Rotate} + position, 360.0), level, std::max(db, kFaintestDb)});
  }
  return rows;
}

/// The directions; of a half turn also those that nobody measured, with the weakest level that was seen.
void AddPoints(PatternTable& table, bool halfTurn) {
  double weakest = 0.0;
  for (const LevelRow& row : table.Rows) {
    table.Points.push_back({row.AngleDeg, row.Db});
    weakest = std::min(weakest, row.Db);
  }
  if (!halfTurn) return;
  for (double degrees = 90.0; degrees < 270.0; degrees += 1.0) table.Points.push_back({degrees, weakest});
}

const std::string& NameOf(const ReadingsRecord& record) {
  return record.HasDescription() ? record.Description : record.FileName;
}

PatternTable TableOf(const Settled& settled) {
  const ReadingsRecord& record = settled.Record;
  PatternTable table;
  table.Rows = RowsOf(settled);
  AddPoints(table, record.Plot180);
  const CutFigures figures = FiguresOfRecord(record);
  table.Name = PrintableText(NameOf(record));
  table.CollectedBy = PrintableText(record.CollectedBy);
  table.CollectedDate = PrintableText(record.CollectedDate);
  table.Horizontal = record.PolarizationHorizontal;
  table.GainDbi = settled.Plot.Figures.GainDbi;
  table.BeamwidthDeg = figures.Hpbw;
  table.FrontToBackDb = figures.FrontToBack;
  return table;
}

void AddLossesOfWholeDegrees(const ReadingsRecord& record, std::vector<std::string>& losses) {
  const int step = kWholeTurn / record.ReadingsPlotted;
  const bool onDegrees =
      step * record.ReadingsPlotted == kWholeTurn && record.Rotate == std::round(record.Rotate);
  if (record.Plot180)
    losses.emplace_back("the half turn that was not measured stands there with the weakest level");
  if (!onDegrees || step != 1)
    losses.push_back(std::to_string(record.ReadingsPlotted) + " readings become 360 levels at whole degrees");
}

/// A format of directions counts levels in dB from the strongest.
bool RaisesLevels(const ReadingsRecord& record, const PatternFormat& format) {
  if (format.WriteTable == nullptr) return false;
  constexpr double kRounding = 0.999;  // a level that was read from 100 dB down is not raised again
  const double faintest = kRounding * double{StrongestOf(record)} * std::pow(10.0, kFaintestDb / 20.0);
  for (int i = record.TrimFront; i <= record.LastPlotted(); ++i)
    if (record.Readings(i) < faintest) return true;
  return false;
}

bool AltersTexts(const ReadingsRecord& record, const PatternFormat& format) {
  if (format.TextAs == nullptr) return false;
  for (const std::string& text : {NameOf(record), record.CollectedBy, record.CollectedDate})
    if (format.TextAs(text) != text) return true;
  return false;
}

void AddLossesOfThis(const ReadingsRecord& record, const PatternFormat& format,
                     std::vector<std::string>& losses) {
  if (record.Plot180 && format.LosesHalfTurn)
    losses.emplace_back(
        "that it is half a turn is lost: read again, the levels are spread over a whole one, twice as wide");
  if (static_cast<std::size_t>(record.NumReadings) >= format.MostReadings)
    losses.push_back("the last of " + std::to_string(record.NumReadings + 1) + " readings is lost");
  if (RaisesLevels(record, format))
    losses.emplace_back("levels of more than 100 dB below the strongest are raised to that");
  if (AltersTexts(record, format))
    losses.emplace_back("texts are cut, or lose characters that have a meaning in this format");
}

std::vector<std::string> LossesOf(const ReadingsRecord& record, const PatternFormat& format) {
  std::vector<std::string> losses;
  if (!format.Lost.empty()) losses.push_back("not in this format: " + std::string(format.Lost));
  AddLossesOfThis(record, format, losses);
  if (format.AtWholeDegrees) AddLossesOfWholeDegrees(record, losses);
  if (!format.Invented.empty()) losses.emplace_back(format.Invented);
  return losses;
}

}  // namespace

WrittenPattern WritePattern(const ReadingsRecord& record, const PatternFormat& format,
                            std::string_view versionText) {
  const Settled settled = Settle(record);
  return {format.WriteRecord != nullptr ? format.WriteRecord(settled.Record, versionText)
                                        : format.WriteTable(TableOf(settled)),
          LossesOf(settled.Record, format)};
}

}  // namespace lobegraph
