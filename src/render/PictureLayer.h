#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

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

/// A text of the layer in Arial, its capitals in the middle of a place.
struct LayerText {
  SurfacePoint Centre;
  std::string Text;
  float Points = 0.F;  ///< as the surface counts them, see DrawingSurface::SetFontSize
  Colour TextColour;
  bool operator==(const LayerText&) const = default;
};

/// What lies above the kept picture and moves without a redraw of it: lines by their number, and texts.
/// Taking one away shows again what is beneath it.
class PictureLayer {
 public:
  /// Shows a line, in place of the one that had this number.
  void Show(int number, const LayerLine& line) { lines_[number] = line; }
  void Hide(int number) { lines_.erase(number); }
  void HideAll() { lines_.clear(); }
  /// In the order of their numbers.
  const std::map<int, LayerLine>& Lines() const { return lines_; }

  /// These texts, in place of the former ones.
  void Write(std::vector<LayerText> texts) { texts_ = std::move(texts); }
  const std::vector<LayerText>& Texts() const { return texts_; }

 private:
  std::map<int, LayerLine> lines_;
  std::vector<LayerText> texts_;
};

}  // namespace lobegraph
