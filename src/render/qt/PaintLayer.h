#pragma once

#include <QPainter>
#include <QRect>

#include "render/PictureLayer.h"

namespace lobegraph {

/// Paints the lines and texts of a layer with a painter in units (a widget's, after it has drawn the
/// picture).
void PaintLayer(QPainter& painter, const PictureLayer& layer);

/// The rectangle, in units, to repaint when the line or the text comes or goes.
QRect TouchedBy(const LayerLine& line);
QRect TouchedBy(const LayerText& text);

}  // namespace lobegraph
