#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <string>

#include "render/StatefulSurface.h"
#include "render/qt/FontFaces.h"

namespace lobegraph {

/// The drawing surface kept as a picture: what a window shows, a file holds and a page prints. Lines are
/// smooth, but horizontal and vertical ones lie on whole pixels. 96 units are an inch on every screen, so
/// 7-point text is 9.33 units high beside a plot of 468. Needs a QGuiApplication.
class ImageSurface : public StatefulSurface {
 public:
  /// An empty picture of the background colour. @param units width and height, above 0.
  ImageSurface(QSize units, qreal devicePixelRatio, Colour background);
  ImageSurface(const ImageSurface&) = delete;
  ImageSurface& operator=(const ImageSurface&) = delete;

  /// Begins an empty picture of another size or another ratio; fonts, pen and fill stay.
  void Resize(QSize units, qreal devicePixelRatio);
  QSize SizeUnits() const { return units_; }
  /// Takes effect with the next Clear, and at once for text grounds.
  void SetBackgroundColour(Colour colour) { KeepBackgroundColour(colour); }

  /// The picture up to now, units_ * ratio pixels large, its device pixel ratio set. Valid until the next
  /// drawing.
  const QImage& Picture();
  /// Goes on from a picture taken before of the same size and ratio (an empty grid, say, that many plots
  /// share); position, font, pen and fill stay.
  void TakeUp(const QImage& picture);
  /// The rectangle, in units, in which anything was drawn since the last call; then none.
  QRect TakeTouched();

  void Clear() override;
  void Line(SurfacePoint from, SurfacePoint to, Colour colour) override;
  void Dot(SurfacePoint at, Colour colour) override;
  void Circle(SurfacePoint centre, float radius, Colour colour) override;
  void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void Text(std::string_view text, Colour colour) override;

  void SetFontName(const std::string& name) override;
  void SetFontSize(float points) override;

 private:
  QPainter& Painter();
  void UsePen(Colour colour);
  void FillDisc(SurfacePoint centre, qreal radius, Colour colour);
  void Touch(const QRectF& units);

  QSize units_;
  qreal ratio_ = 1.0;
  QImage image_;
  QPainter painter_;
  QRect touched_;
  FontFaces faces_;
  QFont font_;
};

}  // namespace lobegraph
