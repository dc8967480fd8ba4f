#pragma once

#include <string>
#include <string_view>

#include "render/Colour.h"

namespace lobegraph {

/// A place on the surface in units of one logical pixel: X to the right, Y downwards, (0, 0) the top-left
/// corner.
struct SurfacePoint {
  float X = 0.0F;
  float Y = 0.0F;
  constexpr bool operator==(const SurfacePoint&) const = default;
};

enum class FillStyle { Solid, Transparent };

/// What a plot is drawn on. It never asks how wide a text is, so a window, a picture file and a list of
/// operations in a test draw the same plot. Lines, dots and boxes leave the current position at their last
/// point.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  /// Fills everything with the background colour and moves the current position to the corner (0, 0).
  virtual void Clear() = 0;

  virtual void Line(SurfacePoint from, SurfacePoint to, Colour colour) = 0;
  /// A line from the current position.
  void LineTo(SurfacePoint to, Colour colour) { Line(CurrentPosition(), to, colour); }
  /// One dot as wide as the pen.
  virtual void Dot(SurfacePoint at, Colour colour) = 0;
  /// The outline in the given colour and the pen width, the inside in the fill colour when the fill style is
  /// solid.
  virtual void Circle(SurfacePoint centre, float radius, Colour colour) = 0;
  virtual void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) = 0;
  virtual void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) = 0;

  /// UTF-8 text whose top-left corner is the current position, which stays. The text clears the ground
  /// beneath it (blanks included) to the background colour, so that a label is readable where it lies on a
  /// line.
  virtual void Text(std::string_view text, Colour colour) = 0;

  virtual SurfacePoint CurrentPosition() const = 0;
  virtual void SetCurrentPosition(SurfacePoint position) = 0;

  virtual Colour FillColour() const = 0;
  virtual void SetFillColour(Colour colour) = 0;
  virtual FillStyle CurrentFillStyle() const = 0;
  virtual void SetFillStyle(FillStyle style) = 0;

  virtual Colour BackgroundColour() const = 0;

  /// Units; 1 or more.
  virtual void SetPenWidth(int width) = 0;

  virtual std::string FontName() const = 0;
  /// @throws RunTimeError when the system has neither this typeface nor one of the same metrics; the font is
  /// then as before.
  virtual void SetFontName(const std::string& name) = 0;
  /// Points of 1/72 inch at 96 units to the inch: 7 points are 9.33 units.
  virtual float FontSize() const = 0;
  virtual void SetFontSize(float points) = 0;

 protected:
  DrawingSurface() = default;
  DrawingSurface(const DrawingSurface&) = default;
  DrawingSurface& operator=(const DrawingSurface&) = default;
};

}  // namespace lobegraph
