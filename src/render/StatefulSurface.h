#pragma once

#include <string>
#include <utility>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// The part of a drawing surface that only remembers: position, fill, pen, font and background. A surface
/// adds what drawing means on it.
class StatefulSurface : public DrawingSurface {
 public:
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

 protected:
  StatefulSurface(Colour background, std::string fontName)
      : background_(background), fontName_(std::move(fontName)) {}

  int PenWidth() const { return penWidth_; }
  void KeepBackgroundColour(Colour colour) { background_ = colour; }
  /// Where a drawing ended; unlike SetCurrentPosition it is no operation of its own.
  void EndAt(SurfacePoint position) { position_ = position; }

 private:
  SurfacePoint position_;
  Colour background_;
  Colour fillColour_;
  FillStyle fillStyle_ = FillStyle::Transparent;
  int penWidth_ = 1;
  std::string fontName_;
  float fontSize_ = 8.25F;
};

}  // namespace lobegraph
