#include "app/plot/CursorCommands.h"

#include <cmath>
#include <numbers>

namespace lobegraph {
namespace {

constexpr float kBeyondRing = 14.F;
constexpr double kFullTurnDeg = 360.0;
constexpr double kHalfTurnDeg = 180.0;

bool Inside(const PlotArea& area, SurfacePoint at) {
  return at.X >= area.Left && at.X <= area.Right && at.Y >= area.Top && at.Y <= area.Bottom;
}

LayerLine MarkOf(const PlotGeometry& plot, bool rectangular, double bearingDeg) {
  LayerLine line;
  line.LineColour = kWhite;
  line.Inverting = true;
  if (rectangular) {
    const PlotArea area = MakePlotArea(plot);
    const double share = std::remainder(bearingDeg, kFullTurnDeg) / kFullTurnDeg + 0.5;
    const auto x = static_cast<float>(area.Left + share * (area.Right - area.Left));
    line.From = {x, static_cast<float>(area.Top)};
    line.To = {x, static_cast<float>(area.Bottom)};
  } else {
    const double angle = bearingDeg * std::numbers::pi / kHalfTurnDeg;
    line.From = plot.Centre();
    line.To = {plot.X + plot.R * static_cast<float>(std::sin(angle)),
               plot.Y - plot.R * static_cast<float>(std::cos(angle))};
  }
  return line;
}

}  // namespace

void CursorCommands::PointAt(SurfacePoint at) {
  const auto bearing = Acts() ? BearingAt(at) : std::nullopt;
  const auto reading = bearing ? ReadingAt(parts_.Pattern.Record(), *bearing) : std::nullopt;
  if (!reading) return Leave();
  board_.Cursor().HideAll();
  parts_.View.ShowDrawing();
  Say(CursorText(*reading));
}

void CursorCommands::Step(int readings) {
  const auto reading = Acts() ? ReadingBeside(parts_.Pattern.Record(), number_, readings) : std::nullopt;
  if (!reading) return Leave();
  number_ = reading->Number;
  Mark(reading->BearingDeg);
  Say(CursorText(*reading));
}

void CursorCommands::Leave() {
  board_.Cursor().HideAll();
  parts_.View.ShowDrawing();
  // Whatever else was said meanwhile stays.
  if (!said_.empty() && parts_.View.Text(Control::lblHint) == said_)
    parts_.View.SetText(Control::lblHint, hintBefore_);
  said_.clear();
}

bool CursorCommands::Acts() const { return !parts_.Shared.Run.Running() && parts_.Pattern.Drawable(); }

std::optional<double> CursorCommands::BearingAt(SurfacePoint at) const {
  const PlotGeometry& plot = board_.Geometry();
  if (parts_.Pattern.Style().Rectangular) {
    const PlotArea area = MakePlotArea(plot);
    if (!Inside(area, at)) return std::nullopt;
    return (at.X - area.Left) * kFullTurnDeg / (area.Right - area.Left) - kHalfTurnDeg;
  }
  const double right = at.X - plot.X;
  const double up = plot.Y - at.Y;
  if (std::hypot(right, up) > plot.R + kBeyondRing) return std::nullopt;
  return std::atan2(right, up) * kHalfTurnDeg / std::numbers::pi;
}

void CursorCommands::Mark(double bearingDeg) {
  board_.Cursor().Show(0, MarkOf(board_.Geometry(), parts_.Pattern.Style().Rectangular, bearingDeg));
  parts_.View.ShowDrawing();
}

void CursorCommands::Say(const std::string& text) {
  const std::string shown = parts_.View.Text(Control::lblHint);
  if (shown != said_ || said_.empty()) hintBefore_ = shown;
  said_ = text;
  if (shown != text) parts_.View.SetText(Control::lblHint, text);
}

}  // namespace lobegraph
