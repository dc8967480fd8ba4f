#pragma once

#include <QRectF>
#include <optional>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// Pen width in whole device pixels, at least one, halves down: at a ratio of 1.5 the widths 1 and 2 become 1
/// and 3 pixels, so that the heavy lines of a grid stay heavier.
int DevicePenWidth(int penWidth, qreal devicePixelRatio);

/// The whole device pixels that a horizontal or vertical line covers, as a rectangle in units; none for any
/// other direction, and for a line so short that it is part of a curve (below 2 units), where a step would
/// show.
std::optional<QRectF> CrispLine(SurfacePoint from, SurfacePoint to, int penWidth, qreal devicePixelRatio);

/// A rectangle in units moved to whole device pixels.
QRectF OnPixels(const QRectF& units, qreal devicePixelRatio);

}  // namespace lobegraph
