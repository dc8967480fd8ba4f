#pragma once

#include <QFont>
#include <QPainter>
#include <QSize>

#include "render/StatefulSurface.h"
#include "render/qt/FontFaces.h"

namespace lobegraph {

/// The drawing surface on a page: vectors stay vectors, nothing is moved to pixels.
class PageSurface : public StatefulSurface {
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
  void SetFontName(const std::string& name) override;

 private:
  void UsePen(Colour colour);

  QPainter& painter_;
  QSize units_;
  FontFaces faces_;
  QFont font_;
};

}  // namespace lobegraph
