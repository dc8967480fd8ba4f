#pragma once

#include <cstdint>
#include <string>

#include "data/base/Currency.h"
#include "settings/InputChoice.h"

namespace lobegraph {

/// Every persistent option as the program uses it; the members are the keys of the store, in the order in
/// which they are read (see SettingsTable.h for what an empty store gives).
struct SettingsValues {
  std::string Username;         ///< call sign; one blank: never asked
  std::int32_t Scale = 0;       ///< scale slider `Slider1`
  std::int32_t RotateTime = 0;  ///< rotation-time slider `Slider2`, seconds
  std::int32_t AutoStart = 0;   ///< check-box values: 0, 1 (2 for a greyed box)
  std::int32_t AutoStop = 0;
  Currency StartupDelay;          ///< seconds
  float DetectStartLevel = 0.0F;  ///< level units
  float DetectStopLevel = 0.0F;
  std::int16_t DetectStopNumberOfReadings = 0;
  std::int32_t Trigger = 0;         ///< check-box value
  float dBCalAdjust0dB = 0.0F;      ///< raw meter units, tenths of a dB
  bool LinearMode = false;          ///< the rectangular drawing
  bool ShowLogScale = false;        ///< dB rings
  std::int32_t PlotUserColour = 0;  ///< colours: red + 256 green + 65536 blue, see Colour::FromStored
  std::int32_t PlotUserOverlayColour = 0;
  std::int32_t PlotGridColour = 0;
  std::int32_t PlotLineColour = 0;
  std::int32_t PlotLineOverlayColour = 0;
  std::int32_t PlotBackground = 0;
  float PeakInputLevel = 0.0F;  ///< the full-scale level
  std::int16_t SpikeDetectLevel = 0;
  std::string MaxRotationTime;  ///< minutes; kept as text, see Slider2Maximum
  InputChoice Input;            ///< the last seven keys

  /// The two levels kept beside the peak level.
  float PeakInputLevelLess60() const { return PeakInputLevel - 60.0F; }
  float PeakInputLevelLess120() const { return PeakInputLevel - 120.0F; }
  /// The maximum of `Slider2` in whole seconds: the leading number of MaxRotationTime times 60; 0 for "abc".
  /// @throws RunTimeError 6 (Overflow)
  std::int32_t Slider2Maximum() const;

  bool operator==(const SettingsValues&) const = default;
};

}  // namespace lobegraph
