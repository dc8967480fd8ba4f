#include "render/qt/PaintLayer.h"

#include <QPen>

#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

QLineF ToQt(const LayerLine& line) {
  return {qreal{line.From.X}, qreal{line.From.Y}, qreal{line.To.X}, qreal{line.To.Y}};
}

}  // namespace

void PaintLayer(QPainter& painter, const PictureLayer& layer) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const auto& [number, line] : layer.Lines()) {
    const Qt::PenStyle style = line.Dashed ? Qt::DashLine : Qt::SolidLine;
    painter.setCompositionMode(line.Inverting ? QPainter::CompositionMode_Difference
                                              : QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(lobegraph::ToQt(line.LineColour), 1.0, style, Qt::FlatCap));
    painter.drawLine(ToQt(line));
  }
  painter.restore();
}

QRect TouchedBy(const LayerLine& line) {
  return QRectF(ToQt(line).p1(), ToQt(line).p2()).normalized().adjusted(-1, -1, 1, 1).toAlignedRect();
}

}  // namespace lobegraph
