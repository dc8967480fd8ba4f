#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "processing/PlotStyle.h"
#include "render/PictureLayer.h"
#include "render/PlotGeometry.h"

namespace lobegraph {

/// The upper line belongs to the left mouse button, the lower one to the right.
enum class AnalysisSide { Upper, Lower };

/// A set of mouse buttons, their numbers added.
enum MouseButtons : unsigned { kNoButton = 0, kLeftButton = 1, kRightButton = 2 };

/// A line's state; positions in whole surface units, -1 for none.
struct AnalysisLine {
  bool Active = false;  ///< follows the pointer
  std::int16_t PressX = -1;
  std::int16_t PressY = -1;
  std::int16_t ReleaseX = -1;
  std::int16_t ReleaseY = -1;
  std::int16_t Drawn = -1;
  bool operator==(const AnalysisLine&) const = default;
};

/// The level of a height above the bottom edge: dB below the peak to one decimal, or percent of it (whole).
/// Deliberate: the bottom edge itself has a level on a linear scale ("-50", "0") and none on the logarithmic
/// one, whose logarithm of 0 there is none of.
std::optional<std::string> LevelText(float height, float fullScaleRadius, const PlotStyle& style);

/// Whole degrees from -180 at the left edge to 180 at the right.
std::string AngleText(float x, const PlotArea& area);

/// "Upper line: -dB level", or "% peak value" where levels are percent.
std::string LineCaption(AnalysisSide side, const PlotStyle& style);

/// Two level lines across the rectangular drawing that the mouse or the arrow keys move. They lie on a layer:
/// the picture beneath stays as it is. Dashed, 1 unit wide, in the opposite of each colour
/// beneath.
class AnalysisLines {
 public:
  explicit AnalysisLines(const PlotGeometry& geometry) : area_(MakePlotArea(geometry)), radius_(geometry.R) {}

  const PlotArea& Area() const { return area_; }
  const PictureLayer& Layer() const { return layer_; }
  const AnalysisLine& Line(AnalysisSide side) const { return lines_.at(Index(side)); }

  /// Edges belong to the area.
  bool Inside(SurfacePoint at) const;
  /// A press inside sets the lines of the buttons in the set and has them follow; a line whose button is not
  /// in the set follows no longer.
  void Press(unsigned buttons, SurfacePoint at);
  /// The lines that follow go to the pointer's height; outside nothing moves.
  void Move(SurfacePoint at);
  /// @return for each line (upper, lower) whether it followed and its level is now to be kept
  std::array<bool, 2> Release(unsigned button, SurfacePoint at);
  /// By the keyboard: moves a line down by whole units (up when negative) and keeps it inside; a line that is
  /// not there begins at the top edge. @return its height above the bottom edge
  float Step(AnalysisSide side, int units);
  void Clear(AnalysisSide side);
  /// The surface was cleared: both lines are forgotten.
  void Reset();

  float HeightAt(SurfacePoint at) const { return static_cast<float>(area_.Bottom) - at.Y; }
  std::optional<std::string> LevelAt(float height, const PlotStyle& style) const {
    return LevelText(height, radius_, style);
  }

 private:
  static std::size_t Index(AnalysisSide side) { return static_cast<std::size_t>(side); }
  void Draw(AnalysisSide side, float y);

  PlotArea area_;
  float radius_;
  PictureLayer layer_;
  std::array<AnalysisLine, 2> lines_;
};

}  // namespace lobegraph
