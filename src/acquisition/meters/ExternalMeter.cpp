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
constexpr std::uint32_t kOldestBeatMs = 2000;
constexpr std::uint32_t kSilentAfterMs = 1000;

std::string Get(SettingsStore& store, const PublishedKey& key) {
  return store.Get(kGaugeBridgeApplication, kSettingsSection, key.Key, key.Default);
}

/// Somebody else's text: what begins with no number ("-inf", "", a dash that is no minus) or with one beyond
/// every range is no value.
std::optional<float> DbmOf(const std::string& text) {
  try {
    const ScannedNumber number = ScanNumber(text);
    if (number.Length == 0) return std::nullopt;
    return static_cast<float>(std::clamp(number.Value, -kLargestDbm, kLargestDbm));
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

bool ExternalMeter::Ready() {
  const std::optional<StoreChange> change = store_.LastChange(kGaugeBridgeApplication);
  const bool dead = change && change->Age.count() >= kOldestBeatMs && !Get(store_, kPublishedBeat).empty();
  const bool ready = Get(store_, kPublishedActive) != "N" && !dead;
  display_.SetStatusText(ready ? "The external power meter is ready."
                               : "The external power meter is not ready.");
  display_.PaintStatusShape(ready ? StatusColour::Green : StatusColour::Red);
  return ready;
}

void ExternalMeter::Poll() {
  if (Get(store_, kPublishedActive) != "Y") return NoValue("The external power meter is not ready.");
  const Published published = Read();
  const std::optional<float> dbm = DbmOf(published.Reading);
  if (!dbm) return NoValue("The external power meter publishes no number.");
  if (!Lives(published)) return NoValue("The external power meter has fallen silent.");
  Take(*dbm);
}

ExternalMeter::Published ExternalMeter::Read() {
  const std::optional<StoreChange> change = store_.LastChange(kGaugeBridgeApplication);
  return {Get(store_, kPublishedReading), Get(store_, kPublishedBeat), change ? change->Stamp : 0};
}

bool ExternalMeter::Lives(const Published& published) {
  const std::int32_t nowMs = clock_.timeGetTime();
  const bool beats = !published.Beat.empty();
  const bool changed = last_ != published;
  if (changed) {
    last_ = published;
    changedMs_ = nowMs;
    ++state_.Life.Changes;
  }
  if (changed || !beats) ++state_.Life.Signs;
  state_.Life.ToldByChangesOnly = !beats;
  state_.Life.SilentAfterMs = beats ? kOldestBeatMs : kSilentAfterMs;
  return !beats || MsBetween(changedMs_, nowMs) < kOldestBeatMs;
}

/// From its first reading on: the program itself says so.
void ExternalMeter::NoValue(const std::string& reason) {
  display_.PaintStatusShape(StatusColour::Red);
  display_.SetStatusText(reason);
  state_.Life.SilentAfterMs = 0;
}

void ExternalMeter::Take(float dbm) {
  display_.PaintStatusShape(StatusColour::Green);
  display_.SetStatusText("The external power meter is active");
  display_.SetReadingDbm(dbm);
  const float raw = std::max(dbm + kRangeDb, kSmallest) * 10.0F;
  state_.MeterLevel = meter_.ConvertReading(FixedText(raw, 1));
  display_.SetDownDb(kRangeDb - state_.MeterDb);
}

}  // namespace lobegraph
