#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "acquisition/core/StatusColour.h"

namespace lobegraph {

/// What the dB meter window shows; an empty option is not shown.
struct MeterShown {
  std::string Status = {};                          ///< lblStatus
  std::optional<StatusColour> StatusShape = {};     ///< ready, error, idle
  std::variant<std::string, float> Reading = {};    ///< as the meter sent it, or dBm with one decimal
  std::optional<float> DownDb = {};                 ///< below full scale, one decimal
  std::optional<StatusColour> LevelIndicator = {};  ///< green within the meter's range, yellow above it
  std::string StateCount = {};                      ///< lblStateCount: trigger polls of the last second
};

/// The dB meter window (frmdBMeter) as the program writes to it; shown or hidden, the writes go on.
class MeterDisplay {
 public:
  virtual ~MeterDisplay() = default;
  /// Shows the window, or brings it back after the user closed it.
  virtual void ShowWindow() = 0;
  virtual void HideWindow() = 0;

  void SetStatusText(const std::string& text) { Put(shown_.Status, text); }
  void PaintStatusShape(StatusColour colour) { Put(shown_.StatusShape, colour); }
  /// The value as the meter sent it.
  void SetReading(const std::string& reading) { Put(shown_.Reading, reading); }
  /// The external meter program's value.
  void SetReadingDbm(float dbm) { Put(shown_.Reading, dbm); }
  void SetDownDb(float downDb) { Put(shown_.DownDb, downDb); }
  void PaintLevelIndicator(StatusColour colour) { Put(shown_.LevelIndicator, colour); }
  void SetStateCount(const std::string& count) { Put(shown_.StateCount, count); }
  /// Nothing of what a meter said is shown any more.
  void Clear() {
    shown_ = {.StateCount = shown_.StateCount};
    Show(shown_);
  }

 protected:
  /// Something of it has changed.
  virtual void Show(const MeterShown& shown) = 0;

 private:
  /// Written at every value of a meter, so what is there already costs nothing.
  template <typename Field, typename Value>
  void Put(Field& field, const Value& value) {
    if (field == Field(value)) return;
    field = value;
    Show(shown_);
  }

  MeterShown shown_;
};

/// Once a second: shows how often the trigger was polled in the last second, and counts anew.
/// @param usbStateCount trigger-state reads since the last tick
inline void tmrOneSec_Timer(std::int32_t& usbStateCount, MeterDisplay& frmdBMeter) {
  frmdBMeter.SetStateCount(std::to_string(std::exchange(usbStateCount, 0)));
}

}  // namespace lobegraph
