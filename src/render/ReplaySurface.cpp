#include "render/ReplaySurface.h"

#include <string>

namespace lobegraph {

void ReplaySurface::DrawOn(DrawingSurface& target) const {
  for (const Operation& operation : operations_) operation(target);
}

void ReplaySurface::Do(const Operation& operation) {
  operation(shown_);
  operations_.push_back(operation);
}

void ReplaySurface::Set(Setting setting, const Operation& operation) {
  Do(operation);
  settings_[setting] = operation;
}

void ReplaySurface::Clear() {
  operations_.clear();
  for (const auto& [setting, operation] : settings_) operations_.push_back(operation);
  Do([](DrawingSurface& surface) { surface.Clear(); });
}

void ReplaySurface::Line(SurfacePoint from, SurfacePoint to, Colour colour) {
  Do([=](DrawingSurface& surface) { surface.Line(from, to, colour); });
}

void ReplaySurface::Dot(SurfacePoint at, Colour colour) {
  Do([=](DrawingSurface& surface) { surface.Dot(at, colour); });
}

void ReplaySurface::Circle(SurfacePoint centre, float radius, Colour colour) {
  Do([=](DrawingSurface& surface) { surface.Circle(centre, radius, colour); });
}

void ReplaySurface::BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  Do([=](DrawingSurface& surface) { surface.BoxOutline(topLeft, bottomRight, colour); });
}

void ReplaySurface::FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  Do([=](DrawingSurface& surface) { surface.FilledBox(topLeft, bottomRight, colour); });
}

void ReplaySurface::Text(std::string_view text, Colour colour) {
  Do([words = std::string(text), colour](DrawingSurface& surface) { surface.Text(words, colour); });
}

void ReplaySurface::SetCurrentPosition(SurfacePoint position) {
  Do([=](DrawingSurface& surface) { surface.SetCurrentPosition(position); });
}

void ReplaySurface::SetFillColour(Colour colour) {
  Set(Setting::FillColour, [=](DrawingSurface& surface) { surface.SetFillColour(colour); });
}

void ReplaySurface::SetFillStyle(FillStyle style) {
  Set(Setting::FillStyle, [=](DrawingSurface& surface) { surface.SetFillStyle(style); });
}

void ReplaySurface::SetPenWidth(int width) {
  Set(Setting::PenWidth, [=](DrawingSurface& surface) { surface.SetPenWidth(width); });
}

void ReplaySurface::SetFontName(const std::string& name) {
  Set(Setting::FontName, [=](DrawingSurface& surface) { surface.SetFontName(name); });
}

void ReplaySurface::SetFontSize(float points) {
  Set(Setting::FontSize, [=](DrawingSurface& surface) { surface.SetFontSize(points); });
}

}  // namespace lobegraph
