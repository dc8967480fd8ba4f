#include "settings/SettingsValues.h"

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"

namespace lobegraph {

std::int32_t SettingsValues::Slider2Maximum() const { return ToInt32(LeadingNumber(MaxRotationTime) * 60.0); }

}  // namespace lobegraph
