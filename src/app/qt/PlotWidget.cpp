#include "app/qt/PlotWidget.h"

#include <QPaintEvent>
#include <QPainter>

namespace lobegraph {

void PlotWidget::paintEvent(QPaintEvent* event) {
  const QImage& picture = surface_.Picture();
  QPainter painter(this);
  painter.setClipRegion(event->region());
  const bool fitting = picture.devicePixelRatio() == devicePixelRatioF();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !fitting);
  painter.drawImage(QPoint(0, 0), picture);
  if (upperLayer_) upperLayer_(painter);
  if (fitting || announcedRatio_ == devicePixelRatioF()) return;
  announcedRatio_ = devicePixelRatioF();
  emit RatioChanged(announcedRatio_);
}

}  // namespace lobegraph
