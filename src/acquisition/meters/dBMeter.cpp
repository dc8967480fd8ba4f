#include "acquisition/meters/dBMeter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"
#include "settings/SettingsWriter.h"

namespace lobegraph {
namespace {

constexpr float kFullScaleRaw = 600.0F;
constexpr float kFullScaleDb = 60.0F;
constexpr float kLargestRaw = 1e30F;  // three of them still have a sum
constexpr std::size_t kLongestNumber = 64;
constexpr std::string_view kTarvenName = "TARVEN";

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
  for (const char character : text) {
    if (settings_.Input.ROSKAmeter) {
      ParseRoska(character);
    } else if (ParseTarven(character) == Rest::Ignore) {
      return;
    }
  }
}

void dBMeter::ParseRoska(char character) {
  if (character == ' ') {
    buffer_.clear();
  } else if (character >= '0' && character <= '9') {
    Append(character);
  } else if (character == ';') {
    TakeReading();
    buffer_.clear();
    state_.MeterReadingCount = ToInt32(state_.MeterReadingCount + 1.0);
  }
}

dBMeter::Rest dBMeter::ParseTarven(char character) {
  switch (character) {
    case '-':
      capturing_ = false;
      buffer_.clear();
      break;
    case '\r':
      capturing_ = true;
      buffer_.clear();
      break;
    case '\n':
      buffer_.clear();
      break;
    case ' ':
      return EndTarvenWord();
    default:
      if (capturing_) Append(character);
  }
  return Rest::Read;
}

dBMeter::Rest dBMeter::EndTarvenWord() {
  if (buffer_ == kTarvenName) {
    capturing_ = false;
    buffer_.clear();
    return Rest::Ignore;
  }
  if (capturing_) TakeReading();
  capturing_ = false;
  return Rest::Read;
}

void dBMeter::Append(char character) {
  if (buffer_.size() < kLongestNumber) buffer_ += character;
}

void dBMeter::TakeReading() {
  state_.MeterLevel = ConvertReading(buffer_);
  display_.SetReading(buffer_);
  display_.SetDownDb(kFullScaleDb - state_.MeterDb);
}

std::string CalibrateCurrent(const MeterState& state, SettingsValues& settings, SettingsStore& store) {
  std::string text = StoreText(std::floor(state.MeterAverage + 0.5F) - kFullScaleRaw);
  settings.dBCalAdjust0dB = static_cast<float>(LeadingNumber(text));
  SaveCalibration(store, settings.dBCalAdjust0dB);
  return text;
}

}  // namespace lobegraph
