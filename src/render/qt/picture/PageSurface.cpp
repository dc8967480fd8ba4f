#include "render/qt/picture/PageSurface.h"

#include <QFontMetricsF>

#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

constexpr double kUnitsPerPoint = 96.0 / 72.0;
/// Texts are laid out this much larger and scaled down, because a page knows only whole font sizes.
constexpr int kFinely = 64;
constexpr double kGroundMargin = 1.0;

QPointF ToQt(SurfacePoint point) { return {double{point.X}, double{point.Y}}; }

}  // namespace

PageSurface::PageSurface(QPainter& painter, QSize units, Colour background)
    : StatefulSurface(background, QFont().family().toStdString()),
      painter_(painter),
      units_(units),
      faces_(QFont().family()) {}

void PageSurface::Clear() {
  painter_.fillRect(QRect({}, units_), ToQt(BackgroundColour()));
  EndAt({});
}

void PageSurface::Line(SurfacePoint from, SurfacePoint to, Colour colour) {
  UsePen(colour);
  painter_.drawLine(ToQt(from), ToQt(to));
  EndAt(to);
}

void PageSurface::Dot(SurfacePoint at, Colour colour) {
  UsePen(colour);
  painter_.drawPoint(ToQt(at));
  EndAt(at);
}

void PageSurface::Circle(SurfacePoint centre, float radius, Colour colour) {
  UsePen(colour);
  if (CurrentFillStyle() == FillStyle::Solid) painter_.setBrush(ToQt(FillColour()));
  painter_.drawEllipse(ToQt(centre), double{radius}, double{radius});
  painter_.setBrush(Qt::NoBrush);
}

void PageSurface::BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  UsePen(colour);
  painter_.drawRect(QRectF(ToQt(topLeft), ToQt(bottomRight)));
  EndAt(bottomRight);
}

void PageSurface::FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  painter_.fillRect(QRectF(ToQt(topLeft), ToQt(bottomRight)), ToQt(colour));
  EndAt(bottomRight);
}

void PageSurface::Text(std::string_view text, Colour colour) {
  const QString words = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  font_.setPixelSize(static_cast<int>(double{FontSize()} * kUnitsPerPoint * kFinely));
  const QFontMetricsF metrics(font_);
  painter_.save();
  painter_.translate(ToQt(CurrentPosition()));
  painter_.scale(1.0 / kFinely, 1.0 / kFinely);
  const double margin = kGroundMargin * kFinely;
  painter_.fillRect(QRectF(0, metrics.ascent() - metrics.capHeight() - margin,
                           metrics.horizontalAdvance(words), metrics.capHeight() + 2 * margin),
                    ToQt(BackgroundColour()));
  painter_.setFont(font_);
  UsePen(colour);
  painter_.drawText(QPointF(0, metrics.ascent()), words);
  painter_.restore();
}

void PageSurface::SetFontName(const std::string& name) {
  font_.setFamilies({faces_.FamilyFor(name)});
  StatefulSurface::SetFontName(name);
}

void PageSurface::UsePen(Colour colour) {
  painter_.setPen(QPen(ToQt(colour), PenWidth(), Qt::SolidLine, Qt::SquareCap));
}

}  // namespace lobegraph
