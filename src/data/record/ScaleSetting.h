#pragma once

#include <algorithm>
#include <string_view>

#include "data/base/Rounding.h"

namespace lobegraph {

/// The factor S of the logarithmic scale, on which a level x dB down lies at 10^(-x / S) of the radius: a
/// larger one spreads the low levels outwards. A whole number, never 0.
namespace scale_setting {
inline constexpr int kLeast = 10;
inline constexpr int kMost = 100;
inline constexpr int kUsual = 35;
inline constexpr std::string_view kUsualText = "35";
}  // namespace scale_setting

/// The setting nearest to what a file brought, which may be any number.
inline int NearestScaleSetting(float brought) {
  constexpr auto kLeast = static_cast<float>(scale_setting::kLeast);
  constexpr auto kMost = static_cast<float>(scale_setting::kMost);
  return ToInt32(std::clamp(brought, kLeast, kMost));
}

}  // namespace lobegraph
