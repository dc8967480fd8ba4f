#include "cli/ReportTable.h"

#include <optional>

#include "data/base/Numbers.h"
#include "data/base/TextEncoding.h"
#include "processing/Figures.h"

namespace lobegraph {
namespace {

constexpr std::size_t kColumn = 10;

std::string Cell(const std::string& text) {
  const std::size_t blanks = text.size() < kColumn ? kColumn - text.size() : 1;
  return std::string(blanks, ' ') + text;
}

std::string Figure(const std::optional<double>& value, int decimals) {
  if (!value) return Cell("-");
  const std::string text = FixedText(*value, decimals);
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  return Cell(isZero && text.front() == '-' ? text.substr(1) : text);
}

}  // namespace

std::string TableHeading() {
  std::string heading;
  for (const char* name :
       {"Readings", "Beamwidth", "Gain dBi", "HPBW", "Centre", "F/B", "F/R", "Side lobe", "Closure"})
    heading += Cell(name);
  return heading + "  File\n";
}

std::string TableRow(const OpenedPattern& pattern, const std::string& file) {
  const PatternSession& session = pattern.Session;
  const PlotResult& plot = session.Plot();
  const CutFigures figures = plot.FieldsSettled ? FiguresOfRecord(session.Record()) : CutFigures{};
  return Cell(std::to_string(session.Record().ReadingsPlotted)) + Figure(session.Figures().BeamwidthDeg, 2) +
         Figure(plot.Figures.GainDbi, 2) + Figure(figures.Hpbw, 2) + Figure(figures.BeamCentre, 1) +
         Figure(figures.FrontToBack, 1) + Figure(figures.FrontToRear, 1) + Figure(figures.SideLobeLevel, 1) +
         Figure(figures.Closure, 2) + "  " + PrintableText(file) + "\n";
}

}  // namespace lobegraph
