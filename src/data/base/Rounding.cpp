#include "data/base/Rounding.h"

#include <cmath>
#include <limits>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

template <typename Whole>
Whole Checked(double value, std::source_location where) {
  const double rounded = RoundHalfEven(value);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  if (!fits) throw RunTimeError(fault::kOverflow, {}, where);
  return static_cast<Whole>(rounded);
}

}  // namespace

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  if (rest != 0.5) return rest < 0.5 ? below : below + 1.0;
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

std::int16_t ToInt16(double value, std::source_location where) { return Checked<std::int16_t>(value, where); }
std::int32_t ToInt32(double value, std::source_location where) { return Checked<std::int32_t>(value, where); }

float ToSingle(double value, std::source_location where) {
  const bool fits = std::abs(value) <= std::numeric_limits<float>::max();
  if (!fits) throw RunTimeError(fault::kOverflow, {}, where);
  return static_cast<float>(value);
}

}  // namespace lobegraph
