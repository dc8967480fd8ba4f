#include "acquisition/meters/ExternalMeter.h"

#include <algorithm>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"
#include "settings/SettingsTable.h"

namespace lobegraph {
namespace {

constexpr float kRangeDb = 60.0F;
constexpr float kSmallest = 0.00001F;
constexpr double kLargestDbm = 1e30;

/// Somebody else's text: a number of any size is a value, never a fault in the middle of a turn.
float DbmOf(const std::string& text) {
  try {
    return static_cast<float>(std::clamp(LeadingNumber(text), -kLargestDbm, kLargestDbm));
  } catch (const RunTimeError&) {
    return static_cast<float>(kLargestDbm);
  }
}

}  // namespace

void ExternalMeter::Poll() {
  const bool active = store_.Get(kGaugeBridgeApplication, kSettingsSection, kPublishedActive.Key,
                                 kPublishedActive.Default) == "Y";
  display_.PaintStatusShape(active ? StatusColour::Green : StatusColour::Red);
  display_.SetStatusText(active ? "The external power meter is active"
                                : "The external power meter is not ready.");
  if (active) TakeReading();
}

void ExternalMeter::TakeReading() {
  const float dbm = DbmOf(store_.Get(kGaugeBridgeApplication, kSettingsSection, kPublishedReading.Key,
                                     kPublishedReading.Default));
  display_.SetReadingDbm(dbm);
  const float raw = std::max(dbm + kRangeDb, kSmallest) * 10.0F;
  state_.MeterLevel = meter_.ConvertReading(FixedText(raw, 1));
  display_.SetDownDb(kRangeDb - state_.MeterDb);
}

}  // namespace lobegraph
