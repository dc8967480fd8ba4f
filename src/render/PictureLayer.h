#pragma once

#include <map>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// A line of the layer: 1 unit wide.
struct LayerLine {
  SurfacePoint From;
  SurfacePoint To;
  Colour LineColour;
  bool Dashed = true;
  /// In white, the opposite of what lies beneath, pixel for pixel: seen on any background, grid lines
  /// included.
  bool Inverting = false;
  bool operator==(const LayerLine&) const = default;
};

/// What lies above the kept picture and moves without a redraw of it: lines by their number. Taking a line
/// away shows again what is beneath it.
class PictureLayer {
 public:
  /// Shows a line, in place of the one that had this number.
  void Show(int number, const LayerLine& line) { lines_[number] = line; }
  void Hide(int number) { lines_.erase(number); }
  void HideAll() { lines_.clear(); }
  /// In the order of their numbers.
  const std::map<int, LayerLine>& Lines() const { return lines_; }

 private:
  std::map<int, LayerLine> lines_;
};

}  // namespace lobegraph
