#include "render/Colour.h"

#include <cmath>

namespace lobegraph {
namespace {

double Linear(std::uint8_t channel) {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
  return 0.2126 * Linear(colour.Red) + 0.7152 * Linear(colour.Green) + 0.0722 * Linear(colour.Blue);
}

}  // namespace

Colour ReadableOn(Colour background) {
  const double luminance = Luminance(background);
  const double contrastToBlack = (luminance + 0.05) / 0.05;
  const double contrastToWhite = 1.05 / (luminance + 0.05);
  return contrastToBlack >= contrastToWhite ? kBlack : kWhite;
}

}  // namespace lobegraph
