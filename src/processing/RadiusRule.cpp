#include "processing/RadiusRule.h"

#include <cmath>

#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

float PlotRadius(PlotScale scale, float fullScale, float levelRatio, float downDb, float scaleSetting) {
  if (scale == PlotScale::Linear) return fullScale * levelRatio;
  if (scale == PlotScale::Db50) {
    const float radius = fullScale - (fullScale / 50.0F) * downDb;
    return radius < 0.0F ? 0.0F : radius;
  }
  if (scaleSetting == 0.0F) throw RunTimeError(fault::kDivisionByZero);
  return ToSingle(static_cast<double>(fullScale) *
                  std::pow(10.0, -static_cast<double>(downDb) / static_cast<double>(scaleSetting)));
}

}  // namespace lobegraph
