#include "app/qt/plot/PlotWidget.h"

#include <QPaintEvent>
#include <QPainter>

#include "render/qt/PaintLayer.h"

namespace lobegraph {

void PlotWidget::ShowDrawing() {
  update(surface_.TakeTouched());
  if (upperLayer_ == nullptr || upperLayer_->Lines() == shownLines_) return;
  for (const auto& [number, line] : shownLines_) update(TouchedBy(line));
  shownLines_ = upperLayer_->Lines();
  for (const auto& [number, line] : shownLines_) update(TouchedBy(line));
}

void PlotWidget::paintEvent(QPaintEvent* event) {
  const QImage& picture = finePicture_ != nullptr ? *finePicture_ : surface_.Picture();
  QPainter painter(this);
  painter.setClipRegion(event->region());
  const bool fitting = finePicture_ != nullptr || picture.devicePixelRatio() == devicePixelRatioF();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !fitting);
  painter.drawImage(QPoint(0, 0), picture);
  if (upperLayer_ != nullptr) PaintLayer(painter, *upperLayer_);
  if (!fitting) AnnounceRatio();
}

void PlotWidget::AnnounceRatio() {
  if (announcedRatio_ == devicePixelRatioF()) return;
  announcedRatio_ = devicePixelRatioF();
  emit RatioChanged(announcedRatio_);
}

}  // namespace lobegraph
