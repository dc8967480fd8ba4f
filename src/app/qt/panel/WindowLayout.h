#pragma once

#include <QRect>

#include "app/parts/Controls.h"

namespace lobegraph {

/// Sizes of the window's inside at the usual font, in units of one logical pixel; 15 twips are one. The plot
/// keeps these units however large it is shown.
inline constexpr int kSurfaceWidth = 758;
inline constexpr int kSurfaceHeight = 560;
inline constexpr int kPanelWidth = 257;
inline constexpr int kPlotWidth = kSurfaceWidth - kPanelWidth;
inline constexpr int kTwipsPerUnit = 15;

/// Whether the control stands on the plot; else it is one of the panel's.
bool OnPlot(Control control);
/// The place of a control on the plot, in units, where a unit is a pixel and the font is the usual one.
QRect PlaceOf(Control control);

/// Where the control stands on a plot of another size: it holds on to a corner of the plot in its natural
/// size, and what is written in a corner has as much more room as the plot is wider.
/// @param pixelsPerUnit of the plot @param fontFactor see FontFactor
/// @return logical pixels from the plot's corner
QRectF PlaceOnPlot(Control control, qreal pixelsPerUnit, qreal fontFactor);

}  // namespace lobegraph
