#include "cli/ConvertCommand.h"

#include <cmath>

#include "cli/ReadPattern.h"
#include "data/base/Numbers.h"
#include "data/formats/LevelTable.h"
#include "data/formats/PlanningFiles.h"
#include "processing/Figures.h"
#include "processing/PreparePlot.h"

namespace lobegraph {
namespace {

constexpr int kWholeTurn = 360;

/// A pattern, and what its plot says of it.
struct Loaded {
  ReadingsRecord Record;
  PlotResult Plot;
};

/// The plot settles peak, trims and step. A set that cannot be plotted (a level of 0 in it) can be converted
/// all the same.
void Settle(Loaded& loaded) {
  ReadingsRecord& record = loaded.Record;
  const PlotTexts boxes{SingleText(record.Rotate), std::to_string(record.TrimFront),
                        std::to_string(record.TrimEnd)};
  try {
    loaded.Plot = BeginPlot(record, boxes, {.chkCalibrate = true});
    if (loaded.Plot.FieldsShown) CompletePlot(record, {.chkCalibrate = true}, loaded.Plot);
  } catch (const RunTimeError&) {
    loaded.Plot.PlotDone = false;
  }
  if (!loaded.Plot.FieldsShown) throw RunTimeError(fault::kTypeMismatch, "no range of readings to convert");
}

/// Each plotted reading with its bearing.
std::vector<LevelRow> RowsOf(const Loaded& loaded) {
  const ReadingsRecord& record = loaded.Record;
  const int last = record.NumReadings - record.TrimEnd;
  float strongest = 0.F;
  for (int i = record.TrimFront; i <= last; ++i) strongest = std::max(strongest, record.Readings(i));
  if (strongest <= 0.F) throw RunTimeError(fault::kTypeMismatch, "no level above 0");
  std::vector<LevelRow> rows;
  for (int i = record.TrimFront; i <= last; ++i) {
    const double position = (i - record.TrimFront) * double{loaded.Plot.DegreesPerReading};
    const float level = record.Readings(i);
    const double db = level > 0.F ? 20.0 * std::log10(double{level} / double{strongest}) : kFaintestDb;
    rows.push_back({i, std::fmod(double{record.Rotate} + position, 360.0), level, std::max(db, kFaintestDb)});
  }
  return rows;
}

PatternTable TableOf(const Loaded& loaded) {
  PatternTable table;
  double weakest = 0.0;
  for (const LevelRow& row : RowsOf(loaded)) {
    table.Points.push_back({row.AngleDeg, row.Db});
    weakest = std::min(weakest, row.Db);
  }
  if (loaded.Record.Plot180)  // nothing is known of the other half: the weakest level that was seen
    for (double degrees = 90.0; degrees < 270.0; degrees += 1.0) table.Points.push_back({degrees, weakest});
  const CutFigures figures = FiguresOfRecord(loaded.Record);
  table.Name = loaded.Record.Description.empty() ? loaded.Record.FileName : loaded.Record.Description;
  table.CollectedBy = loaded.Record.CollectedBy;
  table.CollectedDate = loaded.Record.CollectedDate;
  table.Horizontal = loaded.Record.PolarizationHorizontal;
  table.GainDbi = loaded.Plot.GainEstimate;
  table.BeamwidthDeg = figures.Hpbw;
  table.FrontToBackDb = figures.FrontToBack;
  return table;
}

std::string WordsLost(PatternFormat format) {
  switch (format) {
    case PatternFormat::Csv:
      return "description, operator, date, elements, polarization, trims and rotation";
    case PatternFormat::Splat:
    case PatternFormat::RadioMobile:
      return "description, operator, date, elements, polarization and absolute level";
    case PatternFormat::Planet:
      return "date, elements and absolute level";
    default:
      return "elements and absolute level";
  }
}

/// What the new file does not hold of the old one, a line each.
std::vector<std::string> Losses(const Loaded& loaded, PatternFormat format) {
  std::vector<std::string> losses;
  if (format == PatternFormat::Lbg) return losses;
  losses.push_back("not in this format: " + WordsLost(format));
  if (format == PatternFormat::Csv) return losses;
  const ReadingsRecord& record = loaded.Record;
  const int step = kWholeTurn / record.ReadingsPlotted;
  const bool onDegrees =
      step * record.ReadingsPlotted == kWholeTurn && record.Rotate == std::round(record.Rotate);
  if (record.Plot180)
    losses.emplace_back("the half turn that was not measured stands there with the weakest level");
  if (!onDegrees || step != 1)
    losses.push_back(std::to_string(record.ReadingsPlotted) + " readings become 360 levels at whole degrees");
  if (format == PatternFormat::Planet)
    losses.emplace_back("the vertical cut is unknown and written as 0 dB all round, the frequency as 0");
  return losses;
}

std::string Written(const ConvertRequest& request, PatternFormat format, Loaded& loaded,
                    const std::string& versionText) {
  switch (format) {
    case PatternFormat::Csv:
      return request.Table ? WriteLevelTable(RowsOf(loaded)) : WriteLevels(loaded.Record);
    case PatternFormat::Planet:
      return WritePlanet(TableOf(loaded));
    case PatternFormat::Splat:
      return WriteSplat(TableOf(loaded));
    case PatternFormat::RadioMobile:
      return WriteRadioMobile(TableOf(loaded));
    case PatternFormat::Nsma:
      return WriteNsma(TableOf(loaded));
    default:
      CapForFile(loaded.Record);
      return WritePatternText(loaded.Record, versionText);
  }
}

Loaded Load(const ConvertRequest& request, FileAccess& files) {
  Loaded loaded;
  loaded.Record.FileName = FileNameOf(request.In);
  const LoadOutcome outcome =
      ReadPattern(request.In, files.Read(request.In), {.PeakInputLevel = 1e9F}, request.Table, loaded.Record);
  if (outcome.Error) throw RunTimeError(*outcome.Error);
  Settle(loaded);
  return loaded;
}

bool CanWrite(const std::string& out) {
  if (WithEnding(out, ".lbg") == out) return true;
  const PatternFormat format = FormatOf(out);
  return format != PatternFormat::Lbg && format != PatternFormat::Model;
}

}  // namespace

int RunConvert(const ConvertRequest& request, const CommandParts& parts, const std::string& versionText) {
  if (!CanWrite(request.Out)) {
    parts.Complaints << ComplaintAbout(request.Out,
                                       "the new name ends in .lbg, .csv, .msi, .az, .ant or .adf");
    return kWrongUse;
  }
  std::string named = request.In;
  try {
    Loaded loaded = Load(request, parts.Files);
    const PatternFormat format = FormatOf(request.Out);
    const std::string bytes = Written(request, format, loaded, versionText);
    named = request.Out;
    parts.Files.Replace(request.Out, bytes);
    for (const std::string& loss : Losses(loaded, format))
      parts.Complaints << ComplaintAbout(request.Out, loss);
  } catch (const RunTimeError& error) {
    parts.Complaints << ComplaintAbout(named, error);
    return kSomeFailed;
  }
  return kAllDone;
}

}  // namespace lobegraph
