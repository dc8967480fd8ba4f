#include "render/AxisLabels.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "render/TextWidth.h"

namespace lobegraph {
namespace {

constexpr int kStepDeg = 30;
constexpr int kFullTurnDeg = 360;
constexpr int kHalfTurnDeg = 180;
/// Three digits stand beside the circle in what the surface leaves there.
constexpr float kPoints = 6.5F;
constexpr float kSize = kPoints * 96.F / 72.F;
constexpr float kCapHeight = 0.716F * kSize;
constexpr float kAscent = 0.905F * kSize;
constexpr float kFromRing = 1.9F;
/// The label of 0 dB has its place at the top, so 0 degrees stand above it.
constexpr float kTopFromRing = 17.F;
constexpr float kBelowArea = 8.F;
constexpr float kUnitBelowArea = 20.F;
constexpr float kUnitAboveArea = 13.F;
constexpr float kUnitLeft = 6.F;
constexpr float kUnitRight = 493.F;
constexpr float kUnitBelowCentre = 235.F;
constexpr float kSurfaceRight = 500.5F;

float HalfWidth(const std::string& text) { return ArialWidth(text) * kSize / 2.F; }

LayerText AroundCircle(int angleDeg, const PlotGeometry& plot, Colour colour) {
  const std::string text = std::to_string(angleDeg);
  const float angle = static_cast<float>(angleDeg) * std::numbers::pi_v<float> / kHalfTurnDeg;
  const float x = std::sin(angle);
  const float y = std::cos(angle);
  const float half = std::abs(x) * HalfWidth(text) + std::abs(y) * kCapHeight / 2.F;
  const float radius = plot.R + (angleDeg == 0 ? kTopFromRing : kFromRing + half);
  return {{plot.X + radius * x, plot.Y - radius * y}, text, kPoints, colour};
}

std::vector<LayerText> Polar(const PlotStyle& style, const PlotGeometry& plot, Colour colour) {
  std::vector<LayerText> labels;
  for (int angle = 0; angle < kFullTurnDeg; angle += kStepDeg)
    labels.push_back(AroundCircle(angle, plot, colour));
  const std::string units =
      std::string(style.InDb() ? "Level in dB" : "Share of the peak") + ", angle in degrees";
  labels.push_back({{kUnitRight - HalfWidth(units), plot.Y + kUnitBelowCentre}, units, kPoints, colour});
  return labels;
}

std::vector<LayerText> Rectangular(const PlotStyle& style, const PlotGeometry& plot, Colour colour) {
  const PlotArea area = MakePlotArea(plot);
  const auto left = static_cast<float>(area.Left);
  const auto bottom = static_cast<float>(area.Bottom);
  const float perDegree = static_cast<float>(area.Right - area.Left) / kFullTurnDeg;
  std::vector<LayerText> labels;
  for (int angle = -kHalfTurnDeg; angle <= kHalfTurnDeg; angle += kStepDeg) {
    const std::string text = std::to_string(angle);
    const float x = left + static_cast<float>(angle + kHalfTurnDeg) * perDegree;
    labels.push_back(
        {{std::min(x, kSurfaceRight - HalfWidth(text)), bottom + kBelowArea}, text, kPoints, colour});
  }
  labels.push_back({{plot.X + 10.F, bottom + kUnitBelowArea}, "Angle in degrees", kPoints, colour});
  const std::string level = style.InDb() ? "Level in dB" : "Share of the peak";
  const auto top = static_cast<float>(area.Top);
  labels.push_back({{kUnitLeft + HalfWidth(level), top - kUnitAboveArea}, level, kPoints, colour});
  return labels;
}

}  // namespace

std::vector<LayerText> AxisLabels(const PlotStyle& style, const PlotGeometry& geometry, Colour colour) {
  return style.Rectangular ? Rectangular(style, geometry, colour) : Polar(style, geometry, colour);
}

void DrawText(DrawingSurface& surface, const LayerText& text) {
  const float size = text.Points * 96.F / 72.F;
  surface.SetFontName("Arial");
  surface.SetFontSize(text.Points);
  const float ascent = kAscent / kSize * size;
  const float cap = kCapHeight / kSize * size;
  surface.SetCurrentPosition(
      {text.Centre.X - ArialWidth(text.Text) * size / 2.F, text.Centre.Y - ascent + cap / 2.F});
  surface.Text(text.Text, text.TextColour);
}

}  // namespace lobegraph
