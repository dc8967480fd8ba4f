#pragma once

#include <string>
#include <string_view>

#include "acquisition/core/Clock.h"
#include "acquisition/core/MeterDisplay.h"
#include "acquisition/meters/MeterState.h"
#include "settings/SettingsStore.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// Makes levels of what a dB meter says.
class dBMeter {
 public:
  /// @param clock tells how often a serial meter speaks
  dBMeter(MeterState& state, const SettingsValues& settings, MeterDisplay& display, Clock& clock)
      : state_(state), settings_(settings), display_(display), clock_(clock) {}

  /// A meter value (tenths of a dB, full scale 600) joins the mean of three, and that becomes MeterDb.
  /// Deliberate: the first two values of a meter are averaged with zeros, and a value between 600 and 601
  /// passes unclamped: old patterns were measured so. A text without a leading number is 0, a number of any
  /// size is a value.
  /// @return the linear level, 1000 x 10^((MeterDb - 60) / 20)
  float ConvertReading(std::string_view text);

  /// Text received from the port of the meter that is chosen, in pieces of any size. Each complete number
  /// becomes the level and is shown.
  void ParseChars(std::string_view text);

 private:
  void TakeReading(const std::string& number);

  MeterState& state_;
  const SettingsValues& settings_;
  MeterDisplay& display_;
  Clock& clock_;
};

/// Makes the present mean of the meter 0 dB down, stores the calibration and puts it into the settings.
/// @return the text of lblCalAdjust0dB
std::string CalibrateCurrent(const MeterState& state, SettingsValues& settings, SettingsStore& store);

}  // namespace lobegraph
