#pragma once

#include <QWidget>
#include <functional>

#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// Shows the kept picture of the plot, and on a layer above it what must leave the picture untouched.
class PlotWidget : public QWidget {
  Q_OBJECT

 public:
  PlotWidget(ImageSurface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {}

  /// Repaints only where something was drawn since the last call.
  void ShowDrawing() { update(surface_.TakeTouched()); }
  /// Draws above the picture at each repaint, in surface units.
  void SetUpperLayer(std::function<void(QPainter&)> layer) { upperLayer_ = std::move(layer); }

 signals:
  /// The screen now has another number of pixels to a unit: the picture is to be drawn anew for it.
  void RatioChanged(qreal ratio);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ImageSurface& surface_;
  std::function<void(QPainter&)> upperLayer_;
  qreal announcedRatio_ = 0.0;
};

}  // namespace lobegraph
