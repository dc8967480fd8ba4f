#pragma once

#include <cstdio>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "data/base/RunTimeError.h"
#include "render/StatefulSurface.h"

namespace lobegraph {

/// A number of a drawing operation: at most three decimals, no trailing zeros.
inline std::string OperationNumber(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3f", value);
  std::string result = text;
  result.erase(result.find_last_not_of('0') + 1);
  if (result.back() == '.') result.pop_back();
  return result == "-0" ? "0" : result;
}

inline std::string OperationPoint(SurfacePoint point) {
  return OperationNumber(point.X) + "," + OperationNumber(point.Y);
}

inline std::string OperationColour(Colour colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.Red, colour.Green, colour.Blue);
  return text;
}

/// Keeps the ordered list of what was drawn and set, one text an operation:
/// "clear", "line 1,2 3,4 #000000", "dot 1,2 #000000", "circle 1,2 r3 #000000", "box 1,2 3,4 #000000",
/// "filled box 1,2 3,4 #000000", "at 1,2", "text [ -2 ] #000000", "fill colour #000000", "fill solid",
/// "fill transparent", "pen 2", "font Arial", "size 7".
class RecordingSurface : public StatefulSurface {
 public:
  RecordingSurface() : StatefulSurface({}, "Sans") {}

  std::vector<std::string> Operations;
  Colour Background{224, 224, 224};
  std::set<std::string> MissingFonts;  ///< SetFontName refuses these

  /// The operations whose text begins with the given one.
  std::vector<std::string> Only(const std::string& beginning) const {
    std::vector<std::string> result;
    for (const std::string& operation : Operations) {
      if (operation.starts_with(beginning)) result.push_back(operation);
    }
    return result;
  }
  using StatefulSurface::PenWidth;

  void Clear() override {
    Operations.push_back("clear");
    EndAt({});
  }
  void Line(SurfacePoint from, SurfacePoint to, Colour colour) override {
    Add("line " + OperationPoint(from) + " " + OperationPoint(to), colour, to);
  }
  void Dot(SurfacePoint at, Colour colour) override { Add("dot " + OperationPoint(at), colour, at); }
  void Circle(SurfacePoint centre, float radius, Colour colour) override {
    Add("circle " + OperationPoint(centre) + " r" + OperationNumber(radius), colour, CurrentPosition());
  }
  void BoxOutline(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override {
    Add("box " + OperationPoint(topLeft) + " " + OperationPoint(bottomRight), colour, bottomRight);
  }
  void FilledBox(SurfacePoint topLeft, SurfacePoint bottomRight, Colour colour) override {
    Add("filled box " + OperationPoint(topLeft) + " " + OperationPoint(bottomRight), colour, bottomRight);
  }
  void Text(std::string_view text, Colour colour) override {
    Add("text [" + std::string(text) + "]", colour, CurrentPosition());
  }

  void SetCurrentPosition(SurfacePoint position) override {
    Operations.push_back("at " + OperationPoint(position));
    StatefulSurface::SetCurrentPosition(position);
  }
  void SetFillColour(Colour colour) override {
    Operations.push_back("fill colour " + OperationColour(colour));
    StatefulSurface::SetFillColour(colour);
  }
  void SetFillStyle(FillStyle style) override {
    Operations.push_back(style == FillStyle::Solid ? "fill solid" : "fill transparent");
    StatefulSurface::SetFillStyle(style);
  }
  Colour BackgroundColour() const override { return Background; }
  void SetPenWidth(int width) override {
    Operations.push_back("pen " + std::to_string(width));
    StatefulSurface::SetPenWidth(width);
  }
  void SetFontName(const std::string& name) override {
    if (MissingFonts.contains(name)) throw RunTimeError(fault::kInvalidProcedureCall, name);
    Operations.push_back("font " + name);
    StatefulSurface::SetFontName(name);
  }
  void SetFontSize(float points) override {
    Operations.push_back("size " + OperationNumber(points));
    StatefulSurface::SetFontSize(points);
  }

 private:
  void Add(const std::string& operation, Colour colour, SurfacePoint end) {
    Operations.push_back(operation + " " + OperationColour(colour));
    EndAt(end);
  }
};

}  // namespace lobegraph
