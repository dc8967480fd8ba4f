#pragma once

#include <string>

namespace lobegraph {

/// Texts in the forms of the user's system: the only places where the locale shows.
class SystemText {
 public:
  virtual ~SystemText() = default;
  /// One decimal, grouped: "1,023.9" or "1.023,9".
  virtual std::string OneDecimal(float value) const = 0;
  /// The time, one blank, the date, both in the short forms.
  virtual std::string TimeAndDate() const = 0;
  virtual std::string UpperCase(const std::string& text) const = 0;
};

}  // namespace lobegraph
