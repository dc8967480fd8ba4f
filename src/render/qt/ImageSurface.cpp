#include "render/qt/ImageSurface.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainterPath>
#include <QVector>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "render/qt/CrispLine.h"
#include "render/qt/QtColour.h"

namespace lobegraph {
namespace {

constexpr int kDotsPerMetre = 3780;  // 96 to the inch
constexpr qreal kSmoothMargin = 1.0;
constexpr qreal kTextGroundMargin = 1.0;

QPointF ToQt(SurfacePoint point) { return {qreal{point.X}, qreal{point.Y}}; }

QRectF Between(SurfacePoint a, SurfacePoint b) { return QRectF(ToQt(a), ToQt(b)).normalized(); }

QRectF Around(SurfacePoint centre, qreal radius) {
  return {centre.X - radius, centre.Y - radius, 2.0 * radius, 2.0 * radius};
}

/// A circle as short straight lines: many times faster than a stroked ellipse, and nowhere further from it
/// than a twentieth of a pixel.
QVector<QLineF> CircleChords(SurfacePoint centre, float radius, qreal ratio) {
  constexpr qreal kDeviationPixels = 0.05;
  constexpr int kFewestChords = 16;
  const qreal half = std::acos(std::max(0.0, 1.0 - kDeviationPixels / (radius * ratio)));
  const int count = std::max(kFewestChords, static_cast<int>(std::ceil(std::numbers::pi / half)));
  const auto at = [&](int index) {
    const qreal angle = 2.0 * std::numbers::pi * index / count;
    return QPointF(centre.X + radius * std::sin(angle), centre.Y - radius * std::cos(angle));
  };
  QVector<QLineF> chords;
  chords.reserve(count);
  for (int index = 0; index < count; ++index) chords.append({at(index), at(index + 1)});
  return chords;
}

QImage EmptyPicture(QSize units, qreal ratio, Colour background) {
  const QSize pixels(static_cast<int>(std::ceil(units.width() * ratio)),
                     static_cast<int>(std::ceil(units.height() * ratio)));
  QImage image(pixels, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);
  image.fill(ToQt(background));
  return image;
}

}  // namespace

ImageSurface::ImageSurface(QSize units, qreal devicePixelRatio, Colour background)
    : StatefulSurface(background, QFont().family().toStdString()), faces_(QFont().family()) {
  font_.setPointSizeF(qreal{FontSize()});
  Resize(units, devicePixelRatio);
}

void ImageSurface::Resize(QSize units, qreal devicePixelRatio) {
  if (painter_.isActive()) painter_.end();
  units_ = units;
  ratio_ = devicePixelRatio;
  image_ = EmptyPicture(units, devicePixelRatio, BackgroundColour());
  EndAt({});
  touched_ = QRect({}, units_);
}

const QImage& ImageSurface::Picture() {
  if (painter_.isActive()) painter_.end();
  return image_;
}

void ImageSurface::TakeUp(const QImage& picture) {
  if (painter_.isActive()) painter_.end();
  image_ = picture;
  touched_ = QRect({}, units_);
}

QRect ImageSurface::TakeTouched() { return std::exchange(touched_, QRect()); }

void ImageSurface::Clear() {
  Painter().fillRect(QRect({}, units_), ToQt(BackgroundColour()));
  EndAt({});
  touched_ = QRect({}, units_);
}

void ImageSurface::Line(SurfacePoint from, SurfacePoint to, Colour colour) {
  if (const auto pixels = CrispLine(from, to, PenWidth(), ratio_)) {
    Painter().fillRect(*pixels, ToQt(colour));
  } else {
    UsePen(colour);
    painter_.drawLine(ToQt(from), ToQt(to));
  }
  Touch(Between(from, to));
  EndAt(to);
}

void ImageSurface::Dot(SurfacePoint at, Colour colour) {
  FillDisc(at, DevicePenWidth(PenWidth(), ratio_) / ratio_ / 2.0, colour);
  Touch(Between(at, at));
  EndAt(at);
}

void ImageSurface::Circle(SurfacePoint centre, float radius, Colour colour) {
  if (CurrentFillStyle() == FillStyle::Solid) FillDisc(centre, qreal{radius}, FillColour());
  UsePen(colour);
  if (DevicePenWidth(PenWidth(), ratio_) == 1) {
    painter_.drawEllipse(ToQt(centre), qreal{radius}, qreal{radius});
  } else {
    painter_.drawLines(CircleChords(centre, radius, ratio_));
  }
  Touch(Around(centre, qreal{radius}));
}

void ImageSurface::BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  const qreal half = DevicePenWidth(PenWidth(), ratio_) / ratio_ / 2.0;
  const QRectF outer = OnPixels(Between(topLeft, bottomRight).adjusted(-half, -half, half, half), ratio_);
  const QRectF inner = outer.adjusted(2.0 * half, 2.0 * half, -2.0 * half, -2.0 * half);
  QPainterPath frame;
  frame.addRect(outer);
  frame.addRect(inner);
  Painter().fillPath(frame, ToQt(colour));
  Touch(outer);
  EndAt(bottomRight);
}

void ImageSurface::FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  const QRectF box = Between(topLeft, bottomRight);
  Painter().fillRect(OnPixels(box, ratio_), ToQt(colour));
  Touch(box);
  EndAt(bottomRight);
}

void ImageSurface::Text(std::string_view text, Colour colour) {
  const QString words = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QFontMetricsF metrics(font_, &image_);
  const qreal baseline = qreal{CurrentPosition().Y} + metrics.ascent();
  const QRectF ground(qreal{CurrentPosition().X}, baseline - metrics.capHeight() - kTextGroundMargin,
                      metrics.horizontalAdvance(words), metrics.capHeight() + 2.0 * kTextGroundMargin);
  Painter().fillRect(ground, ToQt(BackgroundColour()));
  painter_.setFont(font_);
  UsePen(colour);
  painter_.drawText(QPointF(qreal{CurrentPosition().X}, baseline), words);
  Touch(ground.adjusted(0, 0, 0, metrics.descent()));
}

void ImageSurface::SetFontName(const std::string& name) {
  font_.setFamilies({faces_.FamilyFor(name)});
  StatefulSurface::SetFontName(name);
}

void ImageSurface::SetFontSize(float points) {
  font_.setPointSizeF(qreal{points});
  StatefulSurface::SetFontSize(points);
}

QPainter& ImageSurface::Painter() {
  if (!painter_.isActive()) {
    painter_.begin(&image_);
    painter_.setRenderHint(QPainter::Antialiasing);
  }
  return painter_;
}

void ImageSurface::UsePen(Colour colour) {
  Painter().setPen(
      QPen(ToQt(colour), DevicePenWidth(PenWidth(), ratio_) / ratio_, Qt::SolidLine, Qt::SquareCap));
}

void ImageSurface::FillDisc(SurfacePoint centre, qreal radius, Colour colour) {
  Painter().setPen(Qt::NoPen);
  painter_.setBrush(ToQt(colour));
  painter_.drawEllipse(ToQt(centre), radius, radius);
  painter_.setBrush(Qt::NoBrush);
}

void ImageSurface::Touch(const QRectF& units) {
  const qreal margin = PenWidth() / 2.0 + kSmoothMargin;
  touched_ |= units.adjusted(-margin, -margin, margin, margin).toAlignedRect() & QRect({}, units_);
}

}  // namespace lobegraph
