#pragma once

#include <QWidget>
#include <map>

#include "render/PictureLayer.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// Shows the kept picture of the plot, and on a layer above it what must leave the picture untouched.
class PlotWidget : public QWidget {
  Q_OBJECT

 public:
  PlotWidget(ImageSurface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {}

  /// Repaints only where something was drawn since the last call, on the picture or on the layer above it.
  void ShowDrawing();
  /// What is drawn above the picture. @param layer outlives the widget
  void SetUpperLayer(const PictureLayer& layer) { upperLayer_ = &layer; }
  /// Paints this in place of the picture of the screen, until it is taken back with none: the same picture
  /// with more pixels, for a page.
  void SetFinePicture(const QImage* picture) { finePicture_ = picture; }

 signals:
  /// The screen now has another number of pixels to a unit: the picture is to be drawn anew for it.
  void RatioChanged(qreal ratio);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void AnnounceRatio();

  ImageSurface& surface_;
  const PictureLayer* upperLayer_ = nullptr;
  const QImage* finePicture_ = nullptr;
  std::map<int, LayerLine> shownLines_;  ///< of the layer, at the last call of ShowDrawing
  qreal announcedRatio_ = 0.0;
};

}  // namespace lobegraph
