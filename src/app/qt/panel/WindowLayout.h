#pragma once

#include <QRect>
#include <span>

#include "app/parts/Controls.h"

namespace lobegraph {

/// Sizes of the window's inside, in units of one logical pixel; 15 twips are one.
inline constexpr int kSurfaceWidth = 758;
inline constexpr int kSurfaceHeight = 560;
inline constexpr int kPanelWidth = 257;
inline constexpr int kPlotWidth = kSurfaceWidth - kPanelWidth;
inline constexpr int kTwipsPerUnit = 15;

/// Where the control stands: on the plot, or in the panel beside it.
bool OnPlot(Control control);
/// Its place on the plot or in the panel.
QRect PlaceOf(Control control);

/// Tops of the lines between the panel's groups: input, collect, plot, readings, figures, file.
std::span<const int> SeparatorTops();

}  // namespace lobegraph
