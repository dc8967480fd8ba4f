#pragma once

#include <functional>
#include <map>
#include <vector>

#include "render/DrawingSurface.h"

namespace lobegraph {

/// Hands everything on to the surface that is shown, and keeps what was drawn since that was last cleared:
/// the same drawing can be made again on another surface, finer, for a page.
class ReplaySurface final : public DrawingSurface {
 public:
  /// @param shown outlives it
  explicit ReplaySurface(DrawingSurface& shown) : shown_(shown) {}

  /// Draws what is shown on another surface of the same size in units. It begins with a clear when there was
  /// one.
  void DrawOn(DrawingSurface& target) const;

  void Clear() override;
  void Line(SurfacePoint from, SurfacePoint to, Colour colour) override;
  void Dot(SurfacePoint at, Colour colour) override;
  void Circle(SurfacePoint centre, float radius, Colour colour) override;
  void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override;
  void Text(std::string_view text, Colour colour) override;

  SurfacePoint CurrentPosition() const override { return shown_.CurrentPosition(); }
  void SetCurrentPosition(SurfacePoint position) override;
  Colour FillColour() const override { return shown_.FillColour(); }
  void SetFillColour(Colour colour) override;
  FillStyle CurrentFillStyle() const override { return shown_.CurrentFillStyle(); }
  void SetFillStyle(FillStyle style) override;
  Colour BackgroundColour() const override { return shown_.BackgroundColour(); }
  void SetPenWidth(int width) override;
  std::string FontName() const override { return shown_.FontName(); }
  void SetFontName(const std::string& name) override;
  float FontSize() const override { return shown_.FontSize(); }
  void SetFontSize(float points) override;

 private:
  using Operation = std::function<void(DrawingSurface&)>;
  /// What outlives a clear.
  enum class Setting { PenWidth, FillColour, FillStyle, FontName, FontSize };

  /// Does it on the shown surface, and keeps it when that went well.
  void Do(const Operation& operation);
  void Set(Setting setting, const Operation& operation);

  DrawingSurface& shown_;
  std::map<Setting, Operation> settings_;  ///< the last of each
  std::vector<Operation> operations_;
};

}  // namespace lobegraph
