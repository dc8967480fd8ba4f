#include "processing/Decibels.h"

#include <cmath>

#include "data/base/RunTimeError.h"

namespace lobegraph {

double Log10(double x) {
  if (!(x > 0.0)) throw RunTimeError(fault::kInvalidProcedureCall);
  return std::log(x) / std::log(10.0);
}

float CheckedRatio(float level, float reference) {
  if (reference == 0.0F) throw RunTimeError(level == 0.0F ? fault::kOverflow : fault::kDivisionByZero);
  return level / reference;
}

float DecibelsBelow(float reference, float level) {
  if (level == 0.0F) throw RunTimeError(reference == 0.0F ? fault::kOverflow : fault::kDivisionByZero);
  return static_cast<float>(20.0 * Log10(static_cast<double>(reference) / static_cast<double>(level)));
}

}  // namespace lobegraph
