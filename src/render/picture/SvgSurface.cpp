#include "render/picture/SvgSurface.h"

#include <charconv>
#include <cmath>

#include "render/TextWidth.h"
#include "render/picture/XmlText.h"

namespace lobegraph {
namespace {

constexpr float kUnitsPerPoint = 96.F / 72.F;
/// Arial's measures as multiples of its size.
constexpr float kAscent = 0.905F;
constexpr float kCapHeight = 0.716F;
constexpr float kGroundMargin = 1.F;

/// At most four decimals, a point in every locale.
std::string Coordinate(float value) {
  constexpr double kPlaces = 10000.0;
  const double rounded = std::round(static_cast<double>(value) * kPlaces) / kPlaces;
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, rounded + 0.0).ptr;
  return {buffer, end};
}

std::string Attribute(std::string_view name, std::string_view value) {
  std::string text(" ");
  return text.append(name).append("=\"").append(value).append("\"");
}
std::string Attribute(std::string_view name, float value) { return Attribute(name, Coordinate(value)); }

std::string ColourText(Colour colour) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned part : {unsigned{colour.Red}, unsigned{colour.Green}, unsigned{colour.Blue}}) {
    text += kDigits[part >> 4U];
    text += kDigits[part & 15U];
  }
  return text;
}

}  // namespace

SvgSurface::SvgSurface(int width, int height, Colour background)
    : StatefulSurface(background, "Arial"), width_(width), height_(height) {}

void SvgSurface::BeginGroup(const std::string& name) {
  elements_ += "<g" + Attribute("class", XmlText(name)) + ">\n";
}

void SvgSurface::EndGroup() { elements_ += "</g>\n"; }

void SvgSurface::GroupAll(const std::string& name) {
  elements_.insert(0, "<g" + Attribute("class", XmlText(name)) + ">\n");
  EndGroup();
}

std::string SvgSurface::Document() const {
  const std::string width = std::to_string(width_);
  const std::string height = std::to_string(height_);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         Attribute("width", width) + Attribute("height", height) +
         Attribute("viewBox", "0 0 " + width + " " + height) + " stroke-linecap=\"square\" fill=\"none\">\n" +
         (title_.empty() ? "" : "<title>" + XmlText(title_) + "</title>\n") +
         "<rect class=\"background\" x=\"0\" y=\"0\"" + Attribute("width", width) +
         Attribute("height", height) + Attribute("fill", ColourText(BackgroundColour())) + "/>\n" +
         elements_ + "</svg>\n";
}

void SvgSurface::Clear() {
  elements_.clear();
  EndAt({});
}

void SvgSurface::Line(SurfacePoint from, SurfacePoint to, Colour colour) {
  elements_ += "<line" + Attribute("x1", from.X) + Attribute("y1", from.Y) + Attribute("x2", to.X) +
               Attribute("y2", to.Y) + Stroke(colour) + "/>\n";
  EndAt(to);
}

void SvgSurface::Dot(SurfacePoint at, Colour colour) {
  const auto width = static_cast<float>(PenWidth());
  Rectangle("dot", {at.X - width / 2.F, at.Y - width / 2.F}, {width, width},
            Attribute("fill", ColourText(colour)));
  EndAt(at);
}

void SvgSurface::Circle(SurfacePoint centre, float radius, Colour colour) {
  elements_ += "<circle" + Attribute("cx", centre.X) + Attribute("cy", centre.Y) + Attribute("r", radius) +
               Stroke(colour);
  if (CurrentFillStyle() == FillStyle::Solid) elements_ += Attribute("fill", ColourText(FillColour()));
  elements_ += "/>\n";
}

void SvgSurface::BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  Rectangle("outline", topLeft, {bottomRight.X - topLeft.X, bottomRight.Y - topLeft.Y}, Stroke(colour));
  EndAt(bottomRight);
}

void SvgSurface::FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) {
  Rectangle("area", topLeft, {bottomRight.X - topLeft.X, bottomRight.Y - topLeft.Y},
            Attribute("fill", ColourText(colour)));
  EndAt(bottomRight);
}

void SvgSurface::Text(std::string_view text, Colour colour) {
  const float size = FontSize() * kUnitsPerPoint;
  const float top = CurrentPosition().Y + (kAscent - kCapHeight) * size - kGroundMargin;
  Rectangle("ground", {CurrentPosition().X, top},
            {ArialWidth(text) * size, kCapHeight * size + 2.F * kGroundMargin},
            Attribute("fill", ColourText(BackgroundColour())));
  elements_ += "<text xml:space=\"preserve\"" + Attribute("x", CurrentPosition().X) +
               Attribute("y", CurrentPosition().Y) + Attribute("dy", kAscent * size) +
               Attribute("font-family", XmlText(FontName()) + ", Helvetica, sans-serif") +
               Attribute("font-size", size) + Attribute("fill", ColourText(colour)) + ">" + XmlText(text) +
               "</text>\n";
}

std::string SvgSurface::Stroke(Colour colour) const {
  return Attribute("stroke", ColourText(colour)) + Attribute("stroke-width", static_cast<float>(PenWidth()));
}

void SvgSurface::Rectangle(std::string_view name, SurfacePoint topLeft, SurfacePoint size,
                           const std::string& paint) {
  elements_ += "<rect" + Attribute("class", name) + Attribute("x", topLeft.X) + Attribute("y", topLeft.Y) +
               Attribute("width", size.X) + Attribute("height", size.Y) + paint + "/>\n";
}

}  // namespace lobegraph
