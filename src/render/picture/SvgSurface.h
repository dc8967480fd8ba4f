#pragma once

#include <string>

#include "render/StatefulSurface.h"

namespace lobegraph {

/// The drawing surface as a vector picture: each line, ring, dot, box and text is one element with the
/// coordinates of the plot, so that a page can style it and a test can measure it.
/// Lines are <line>, rings <circle>, dots and boxes <rect>, texts <text> whose x and y are the top-left
/// corner; the ground that a text clears is a <rect class="ground"> before it.
class SvgSurface : public StatefulSurface {
 public:
  SvgSurface(int width, int height, Colour background);

  /// Elements up to the matching EndGroup get a parent of this class.
  void BeginGroup(const std::string& name);
  void EndGroup();
  /// A parent for everything drawn so far.
  void GroupAll(const std::string& name);
  /// What a viewer names the picture.
  void SetTitle(const std::string& title) { title_ = title; }
  /// The whole document, UTF-8. The groups have been ended.
  std::string Document() const;

  void Clear() override;
  void Line(SurfacePoint from, SurfacePoint to, Colour colour) override;
  void Dot(SurfacePoint at, Colour colour) override;
  void Circle(SurfacePoint centre, float radius, Colour colour) override;
  void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void Text(std::string_view text, Colour colour) override;

 private:
  std::string Stroke(Colour colour) const;
  void Rectangle(std::string_view name, SurfacePoint topLeft, SurfacePoint size, const std::string& paint);

  int width_;
  int height_;
  std::string title_;
  std::string elements_;
};

}  // namespace lobegraph
