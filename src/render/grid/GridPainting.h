#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// What a grid is drawn over: a surface that is cleared first, or what is there.
enum class GridOver { Cleared, Kept };

/// A text of the grid and its top-left corner.
struct GridLabel {
  std::string_view Text;
  SurfacePoint TopLeft;
};

void DrawGridLabels(DrawingSurface& surface, const std::vector<GridLabel>& labels, Colour colour);

/// Arial of 7 points for the labels; a system without that typeface keeps the one in force.
class LabelFont {
 public:
  explicit LabelFont(DrawingSurface& surface);
  /// Puts the former font back. Deliberate: its size comes back as a whole number (8.25 as 8), so texts drawn
  /// after a grid have one size whatever the desktop's font measured.
  void Restore();

 private:
  DrawingSurface& surface_;
  std::string savedName_;
  std::int16_t savedSize_;
};

}  // namespace lobegraph
