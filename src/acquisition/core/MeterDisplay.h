#pragma once

#include <string>

#include "acquisition/core/MeterWindow.h"

namespace lobegraph {

/// The dB meter window with what only the meters themselves write to it.
class MeterDisplay : public MeterWindow {
 public:
  /// Shows the window, or brings it back after the user closed it.
  virtual void ShowWindow() = 0;
  /// The value as the meter sent it.
  virtual void SetReading(const std::string& reading) = 0;
  /// The external meter program's value in dBm, shown with one decimal.
  virtual void SetReadingDbm(float dbm) = 0;
  /// dB below full scale, shown with one decimal.
  virtual void SetDownDb(float downDb) = 0;
  /// Green within the meter's range, yellow above it.
  virtual void PaintLevelIndicator(StatusColour colour) = 0;
};

}  // namespace lobegraph
