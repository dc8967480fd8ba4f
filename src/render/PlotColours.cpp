#include "render/PlotColours.h"

#include <iterator>

namespace lobegraph {
namespace {

constexpr Colour kFurther[] = {{0, 114, 178}, {213, 94, 0}, {204, 121, 167}, {0, 158, 115}, {86, 180, 233}};

}  // namespace

TraceInk InkOf(const PlotColours& colours, std::size_t pattern) {
  if (pattern == 0) return {colours.PlotLineColour, colours.PlotUserColour};
  if (pattern == 1) return {colours.PlotLineOverlayColour, colours.PlotUserOverlayColour};
  const Colour further = kFurther[(pattern - 2) % std::size(kFurther)];
  return {further, further};
}

}  // namespace lobegraph
