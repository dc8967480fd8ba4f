#include "app/qt/print/WindowPicture.h"

#include <QPainter>
#include <algorithm>

namespace lobegraph {
namespace {

/// Across a page that is about 600 dots to the inch.
constexpr int kPixelsOfLongSide = 4800;

/// Whole, so that every unit covers the same number of pixels.
int RatioFor(QSize units) { return std::max(1, kPixelsOfLongSide / std::max(units.width(), units.height())); }

}  // namespace

QImage WindowPicture::Take() const {
  const int ratio = RatioFor(window_.size());
  const QImage plot = PlotFor(ratio * plot_.PixelsPerUnit());
  // It lies on its side: what a style would draw from its store of small pictures it then draws afresh.
  QImage lying(window_.height() * ratio, window_.width() * ratio, QImage::Format_RGB32);
  QPainter painter(&lying);
  painter.translate(lying.width(), 0);
  painter.rotate(90);
  painter.scale(ratio, ratio);
  plot_.SetFinePicture(&plot);
  window_.render(&painter);
  plot_.SetFinePicture(nullptr);
  painter.end();
  QImage upright = lying.transformed(QTransform().rotate(-90));
  upright.setDevicePixelRatio(ratio);
  return upright;
}

QImage WindowPicture::PlotFor(qreal ratio) const {
  ImageSurface fine(shown_.SizeUnits(), ratio, shown_.BackgroundColour());
  drawing_.DrawOn(fine);
  return fine.Picture();
}

}  // namespace lobegraph
