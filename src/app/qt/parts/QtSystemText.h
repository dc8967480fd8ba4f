#pragma once

#include "app/parts/SystemText.h"

namespace lobegraph {

/// The forms of the user's locale.
class QtSystemText final : public SystemText {
 public:
  std::string OneDecimal(float value) const override;
  std::string TimeAndDate() const override;
  std::string UpperCase(const std::string& text) const override;
};

}  // namespace lobegraph
