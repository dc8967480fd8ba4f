#pragma once

#include <QFont>
#include <QPainter>
#include <QSize>

#include "render/DrawingSurface.h"
#include "render/qt/FontFaces.h"

namespace lobegraph {

/// The drawing surface on a page: vectors stay vectors, nothing is moved to pixels.
class PageSurface : public DrawingSurface {
 public:
  /// @param painter scaled so that a unit of the painter is a unit of the surface; must outlive it
  PageSurface(QPainter& painter, QSize units, Colour background);

  void Clear() override;
  void Line(SurfacePoint from, SurfacePoint to, Colour colour) override;
  void Dot(SurfacePoint at, Colour colour) override;
  void Circle(SurfacePoint centre, float radius, Colour colour) override;
  void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void Text(std::string_view text, Colour colour) override;
  SurfacePoint CurrentPosition() const override { return position_; }
  void SetCurrentPosition(SurfacePoint position) override { position_ = position; }
  Colour FillColour() const override { return fillColour_; }
  void SetFillColour(Colour colour) override { fillColour_ = colour; }
  FillStyle CurrentFillStyle() const override { return fillStyle_; }
  void SetFillStyle(FillStyle style) override { fillStyle_ = style; }
  Colour BackgroundColour() const override { return background_; }
  void SetPenWidth(int width) override { penWidth_ = width; }
  std::string FontName() const override { return fontName_; }
  void SetFontName(const std::string& name) override;
  float FontSize() const override { return fontSize_; }
  void SetFontSize(float points) override { fontSize_ = points; }

 private:
  void UsePen(Colour colour);

  QPainter& painter_;
  QSize units_;
  Colour background_;
  SurfacePoint position_;
  Colour fillColour_;
  FillStyle fillStyle_ = FillStyle::Transparent;
  int penWidth_ = 1;
  FontFaces faces_;
  QFont font_;
  std::string fontName_;
  float fontSize_ = 8.25F;
};

}  // namespace lobegraph
