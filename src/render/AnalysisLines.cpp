#include "render/AnalysisLines.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"

namespace lobegraph {
namespace {

constexpr std::array kSides = {AnalysisSide::Upper, AnalysisSide::Lower};

constexpr unsigned ButtonOf(AnalysisSide side) {
  return side == AnalysisSide::Upper ? kLeftButton : kRightButton;
}

std::string OneDecimal(double value) {
  return StoreText(static_cast<float>(RoundHalfEven(value * 10.0) / 10.0));
}

}  // namespace

std::optional<std::string> LevelText(float height, float fullScaleRadius, const PlotStyle& style) {
  constexpr double kDbSpan = 50.0;
  const double h = height;
  const double r = fullScaleRadius;
  if (style.Logarithmic()) {
    if (!(h > 0.0)) return std::nullopt;
    return OneDecimal(style.ScaleSetting * std::log10(h / r));
  }
  if (!(h >= 0.0)) return std::nullopt;
  if (style.InDb()) return OneDecimal(-(r - h) * kDbSpan / r);
  return FixedText(RoundHalfEven(h * 100.0 / r), 0);
}

std::string AngleText(float x, const PlotArea& area) {
  const double turned = (x - area.Left) * 360.0 / (area.Right - area.Left);
  return std::to_string(ToInt32(turned) - 180);
}

std::string LineCaption(AnalysisSide side, const PlotStyle& style) {
  const std::string line = side == AnalysisSide::Upper ? "Upper line: " : "Lower line: ";
  return line + (style.InDb() ? "-dB level" : "% peak value");
}

bool AnalysisLines::Inside(SurfacePoint at) const {
  return area_.Left <= at.X && at.X <= area_.Right && area_.Top <= at.Y && at.Y <= area_.Bottom;
}

void AnalysisLines::Press(unsigned buttons, SurfacePoint at) {
  for (const AnalysisSide side : kSides) {
    AnalysisLine& line = lines_.at(Index(side));
    if ((buttons & ButtonOf(side)) == 0) {
      line.Active = false;
    } else if (Inside(at)) {
      Draw(side, at.Y);
      line.Active = true;
      line.PressX = ToInt16(at.X);
      line.PressY = ToInt16(at.Y);
      line.ReleaseX = line.ReleaseY = -1;
    }
  }
}

void AnalysisLines::Move(SurfacePoint at) {
  if (!Inside(at)) return;
  for (const AnalysisSide side : kSides)
    if (Line(side).Active) Draw(side, at.Y);
}

std::array<bool, 2> AnalysisLines::Release(unsigned button, SurfacePoint at) {
  std::array<bool, 2> kept{};
  for (const AnalysisSide side : kSides) {
    AnalysisLine& line = lines_.at(Index(side));
    if (line.Active && Inside(at)) {
      line.ReleaseX = ToInt16(at.X);
      line.ReleaseY = ToInt16(at.Y);
      kept.at(Index(side)) = true;
    }
    if (button == ButtonOf(side)) line.Active = false;
  }
  return kept;
}

float AnalysisLines::Step(AnalysisSide side, int units) {
  const int former = Line(side).Drawn;
  const int wanted = former < 0 ? area_.Top : former + units;
  const int y = std::clamp<int>(wanted, area_.Top, area_.Bottom);
  Draw(side, static_cast<float>(y));
  return static_cast<float>(area_.Bottom - y);
}

void AnalysisLines::Clear(AnalysisSide side) {
  layer_.Hide(static_cast<int>(side));
  lines_.at(Index(side)).Drawn = -1;
}

void AnalysisLines::Reset() {
  layer_.HideAll();
  lines_ = {};
}

void AnalysisLines::Draw(AnalysisSide side, float y) {
  const float left = area_.Left;
  const float right = area_.Right;
  layer_.Show(static_cast<int>(side),
              {.From = {left, y}, .To = {right, y}, .LineColour = kWhite, .Inverting = true});
  lines_.at(Index(side)).Drawn = ToInt16(y);
}

}  // namespace lobegraph
