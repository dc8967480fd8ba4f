#include "acquisition/meters/dBMeter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "acquisition/meters/LevelSource.h"
#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"
#include "settings/SettingsWriter.h"

namespace lobegraph {
namespace {

constexpr float kFullScaleRaw = 600.0F;
constexpr float kFullScaleDb = 60.0F;
constexpr float kLargestRaw = 1e30F;  // three of them still have a sum

/// Noise on the line can look like a number of any size; it must not end a turn.
float RawValue(std::string_view text) {
  try {
    return static_cast<float>(std::clamp<double>(LeadingNumber(text), -kLargestRaw, kLargestRaw));
  } catch (const RunTimeError&) {
    return kLargestRaw;
  }
}

}  // namespace

float dBMeter::ConvertReading(std::string_view text) {
  auto& history = state_.MeterHistory;
  history = {RawValue(text), history[0], history[1]};
  state_.MeterAverage = (history[0] + history[1] + history[2]) / 3.0F;
  state_.HistoryLength = std::min(state_.HistoryLength + 1, history.size());
  ++state_.ValuesReceived;
  float value = std::max(state_.MeterAverage - settings_.dBCalAdjust0dB, 0.0F);
  const bool inRange = value - 1.0F <= kFullScaleRaw;
  if (!inRange) value = kFullScaleRaw;
  display_.PaintLevelIndicator(inRange ? StatusColour::Green : StatusColour::Yellow);
  state_.MeterDb = value / 10.0F;
  const double exponent = (static_cast<double>(state_.MeterDb) - kFullScaleDb) / 20.0;
  return static_cast<float>(1000.0 * std::exp(std::numbers::ln10 * exponent));
}

void dBMeter::ParseChars(std::string_view text) {
  const SerialProtocol receive = SourceOf(settings_.Input).Protocol;
  if (receive == nullptr) return;
  int values = 0;
  receive(text, state_.Received, [&](const std::string& number) {
    TakeReading(number);
    ++values;
  });
  state_.Pace.Received(values, clock_.timeGetTime());
  state_.Life.SilentAfterMs = state_.Pace.SilentAfterMs();
  state_.Life.ToldByChangesOnly = false;
}

void dBMeter::TakeReading(const std::string& number) {
  state_.MeterLevel = ConvertReading(number);
  ++state_.Life.Signs;
  display_.SetReading(number);
  display_.SetDownDb(kFullScaleDb - state_.MeterDb);
}

std::string CalibrateCurrent(const MeterState& state, SettingsValues& settings, SettingsStore& store) {
  std::string text = StoreText(std::floor(state.MeterAverage + 0.5F) - kFullScaleRaw);
  settings.dBCalAdjust0dB = static_cast<float>(LeadingNumber(text));
  SaveCalibration(store, settings.dBCalAdjust0dB);
  return text;
}

}  // namespace lobegraph
