#include "render/qt/PaintLayer.h"

#include <QFontMetricsF>
#include <QPen>

#include "render/TextWidth.h"
#include "render/qt/FontFaces.h"
#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

QLineF ToQt(const LayerLine& line) {
  return {qreal{line.From.X}, qreal{line.From.Y}, qreal{line.To.X}, qreal{line.To.Y}};
}

constexpr qreal kUnitsPerPoint = 96.0 / 72.0;

/// In units, whatever the desktop says of its dots to the inch.
QFont FontOf(const LayerText& text, const QPaintDevice& device) {
  QFont font(FamiliesFor("Arial"));
  font.setPointSizeF(qreal{text.Points} * kUnitsPerPoint * 72.0 / device.logicalDpiY());
  return font;
}

void PaintText(QPainter& painter, const LayerText& text) {
  const QString words = QString::fromStdString(text.Text);
  painter.setFont(FontOf(text, *painter.device()));
  painter.setPen(lobegraph::ToQt(text.TextColour));
  const QFontMetricsF metrics(painter.font(), painter.device());
  painter.drawText(QPointF(qreal{text.Centre.X} - metrics.horizontalAdvance(words) / 2.0,
                           qreal{text.Centre.Y} + metrics.capHeight() / 2.0),
                   words);
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
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  for (const LayerText& text : layer.Texts()) PaintText(painter, text);
  painter.restore();
}

QRect TouchedBy(const LayerLine& line) {
  return QRectF(ToQt(line).p1(), ToQt(line).p2()).normalized().adjusted(-1, -1, 1, 1).toAlignedRect();
}

QRect TouchedBy(const LayerText& text) {
  // A guess of the width, and room around it.
  const qreal size = qreal{text.Points} * kUnitsPerPoint;
  const qreal half = qreal{ArialWidth(text.Text)} * size * 0.6;
  return QRectF(qreal{text.Centre.X} - half, qreal{text.Centre.Y} - size, 2.0 * half, 2.0 * size)
      .toAlignedRect();
}

}  // namespace lobegraph
