#include "render/grid/GridPainting.h"

#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

void DrawGridLabels(DrawingSurface& surface, const std::vector<GridLabel>& labels, Colour colour) {
  for (const GridLabel& label : labels) {
    surface.SetCurrentPosition(label.TopLeft);
    surface.Text(label.Text, colour);
  }
}

LabelFont::LabelFont(DrawingSurface& surface)
    : surface_(surface), savedName_(surface.FontName()), savedSize_(ToInt16(surface.FontSize())) {
  try {
    surface_.SetFontName("Arial");
  } catch (const RunTimeError&) {
    surface_.SetFontName(savedName_);
  }
  surface_.SetFontSize(7.0F);
}

void LabelFont::Restore() {
  surface_.SetFontSize(savedSize_);
  surface_.SetFontName(savedName_);
}

}  // namespace lobegraph
