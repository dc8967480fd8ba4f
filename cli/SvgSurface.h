#pragma once

#include <string>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// The drawing surface as a vector picture: each line, ring, dot, box and text is one element with the
/// coordinates of the plot, so that a page can style it and a test can measure it.
/// Lines are <line>, rings <circle>, dots and boxes <rect>, texts <text> whose x and y are the top-left
/// corner; the ground that a text clears is a <rect class="ground"> before it.
class SvgSurface : public DrawingSurface {
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
  SurfacePoint CurrentPosition() const override { return position_; }
  void SetCurrentPosition(SurfacePoint position) override { position_ = position; }
  Colour FillColour() const override { return fillColour_; }
  void SetFillColour(Colour colour) override { fillColour_ = colour; }
  FillStyle CurrentFillStyle() const override { return fillStyle_; }
  void SetFillStyle(FillStyle style) override { fillStyle_ = style; }
  Colour BackgroundColour() const override { return background_; }
  void SetPenWidth(int width) override { penWidth_ = width; }
  std::string FontName() const override { return fontName_; }
  void SetFontName(const std::string& name) override { fontName_ = name; }
  float FontSize() const override { return fontSize_; }
  void SetFontSize(float points) override { fontSize_ = points; }

 private:
  std::string Stroke(Colour colour) const;
  void Rectangle(std::string_view name, SurfacePoint topLeft, SurfacePoint size, const std::string& paint);

  int width_;
  int height_;
  Colour background_;
  std::string title_;
  std::string elements_;
  SurfacePoint position_;
  Colour fillColour_;
  FillStyle fillStyle_ = FillStyle::Transparent;
  int penWidth_ = 1;
  std::string fontName_ = "Arial";
  float fontSize_ = 8.25F;
};

/// A text as it stands between tags or in an attribute; characters that a document may not hold (controls,
/// broken UTF-8) become the replacement character.
std::string XmlText(std::string_view text);

}  // namespace lobegraph
