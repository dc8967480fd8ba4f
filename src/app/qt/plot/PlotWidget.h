#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "render/PictureLayer.h"
#include "render/qt/ImageSurface.h"

namespace lobegraph {

/// Shows the kept picture of the plot as large as it fits, in the middle, and on layers above it what must
/// leave the picture untouched. The surface keeps its units; how many pixels a unit has follows the widget.
class PlotWidget : public QWidget {
  Q_OBJECT

 public:
  PlotWidget(ImageSurface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {}

  /// Logical pixels of the widget to a unit of the surface.
  qreal PixelsPerUnit() const;
  /// Pixels of the screen to a unit: what the picture is to be drawn with.
  qreal Ratio() const { return PixelsPerUnit() * devicePixelRatioF(); }
  /// Where the surface's corner (0, 0) lies in the widget.
  QPointF Origin() const;
  /// A place of the widget as the surface counts.
  SurfacePoint UnitsAt(QPointF place) const;
  /// A rectangle of the surface in the widget.
  QRectF PlaceOf(const QRectF& units) const;

  /// Repaints only where something was drawn since the last call, on the picture or on the layers above it.
  void ShowDrawing();
  /// What is drawn above the picture, and above the layers that were added before. @param layer outlives the
  /// widget
  void AddLayer(const PictureLayer& layer) { layers_.push_back({&layer, {}, {}}); }
  /// Paints this in place of the picture of the screen, until it is taken back with none: the same picture
  /// with more pixels, for a page.
  void SetFinePicture(const QImage* picture) { finePicture_ = picture; }

 signals:
  /// A unit now has another number of pixels: the picture is to be drawn anew for it.
  void RatioChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct ShownLayer {
    const PictureLayer* Layer;
    std::map<int, LayerLine> Lines;  ///< at the last call of ShowDrawing
    std::vector<LayerText> Texts;    ///< as well
  };
  void ShowLayer(ShownLayer& shown);
  void PaintPicture(QPainter& painter, const QImage& picture) const;
  bool Fits(const QImage& picture) const { return picture.devicePixelRatio() == Ratio(); }
  void AnnounceRatio();

  ImageSurface& surface_;
  std::vector<ShownLayer> layers_;
  const QImage* finePicture_ = nullptr;
  qreal announcedRatio_ = 0.0;
};

}  // namespace lobegraph
