#include "app/qt/plot/PlotWidget.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "render/qt/PaintLayer.h"

namespace lobegraph {
namespace {

constexpr qreal kLeastPixelsPerUnit = 0.1;

/// The same pixels, to be laid on pixels of the screen one by one. @param picture outlives it
QImage PixelForPixel(const QImage& picture, qreal screenRatio) {
  QImage shown(picture.constBits(), picture.width(), picture.height(), picture.bytesPerLine(),
               picture.format());
  shown.setDevicePixelRatio(screenRatio);
  return shown;
}

}  // namespace

qreal PlotWidget::PixelsPerUnit() const {
  const QSizeF units = surface_.SizeUnits();
  return std::max(kLeastPixelsPerUnit, std::min(width() / units.width(), height() / units.height()));
}

QPointF PlotWidget::Origin() const {
  const QSizeF shown = QSizeF(surface_.SizeUnits()) * PixelsPerUnit();
  // On whole pixels of the screen, where lines are sharp.
  const auto middle = [this](qreal room) {
    return std::floor(std::max(0.0, room / 2.0) * devicePixelRatioF()) / devicePixelRatioF();
  };
  return {middle(width() - shown.width()), middle(height() - shown.height())};
}

SurfacePoint PlotWidget::UnitsAt(QPointF place) const {
  const QPointF units = (place - Origin()) / PixelsPerUnit();
  return {static_cast<float>(units.x()), static_cast<float>(units.y())};
}

QRectF PlotWidget::PlaceOf(const QRectF& units) const {
  return {Origin() + units.topLeft() * PixelsPerUnit(), units.size() * PixelsPerUnit()};
}

void PlotWidget::ShowDrawing() {
  update(PlaceOf(surface_.TakeTouched()).toAlignedRect());
  for (ShownLayer& layer : layers_) ShowLayer(layer);
}

void PlotWidget::ShowLayer(ShownLayer& shown) {
  const PictureLayer& layer = *shown.Layer;
  if (layer.Lines() == shown.Lines && layer.Texts() == shown.Texts) return;
  const auto repaint = [this, &shown] {
    for (const auto& [number, line] : shown.Lines) update(PlaceOf(TouchedBy(line)).toAlignedRect());
    for (const LayerText& text : shown.Texts) update(PlaceOf(TouchedBy(text)).toAlignedRect());
  };
  repaint();
  shown.Lines = layer.Lines();
  shown.Texts = layer.Texts();
  repaint();
}

void PlotWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setClipRegion(event->region());
  PaintPicture(painter, finePicture_ != nullptr ? *finePicture_ : surface_.Picture());
  painter.translate(Origin());
  painter.scale(PixelsPerUnit(), PixelsPerUnit());
  for (const ShownLayer& layer : layers_) PaintLayer(painter, *layer.Layer);
  if (finePicture_ == nullptr && !Fits(surface_.Picture())) AnnounceRatio();
}

void PlotWidget::PaintPicture(QPainter& painter, const QImage& picture) const {
  if (finePicture_ == nullptr && Fits(picture))
    return painter.drawImage(Origin(), PixelForPixel(picture, devicePixelRatioF()));
  painter.setRenderHint(QPainter::SmoothPixmapTransform, finePicture_ == nullptr);
  painter.drawImage(PlaceOf(QRectF(QPointF(), picture.deviceIndependentSize())), picture);
}

void PlotWidget::resizeEvent(QResizeEvent*) {
  if (!Fits(surface_.Picture())) emit RatioChanged();
}

/// Once for each ratio: whoever listens may have to wait.
void PlotWidget::AnnounceRatio() {
  if (announcedRatio_ == Ratio()) return;
  announcedRatio_ = Ratio();
  // Drawing is not for the middle of a repaint.
  QMetaObject::invokeMethod(this, &PlotWidget::RatioChanged, Qt::QueuedConnection);
}

}  // namespace lobegraph
