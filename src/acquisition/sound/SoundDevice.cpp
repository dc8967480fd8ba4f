#include "acquisition/sound/SoundDevice.h"

#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kBitsPerByte = 8;
constexpr double kBlocksPerSecond = 100;

}  // namespace

WaveFormat PcmFormat(std::int32_t samplesPerSecond, std::int16_t bitsPerSample, std::int16_t channels) {
  WaveFormat format;
  format.Channels = channels;
  format.SamplesPerSecond = samplesPerSecond;
  format.BitsPerSample = bitsPerSample;
  format.BlockAlign = ToInt16(ToInt16(double{1} * bitsPerSample * channels) / kBitsPerByte);
  format.AverageBytesPerSecond = ToInt32(double{1} * format.BlockAlign * samplesPerSecond);
  return format;
}

std::int32_t HalfBufferBytes(const WaveFormat& format, std::int32_t wishedBytes) {
  if (format.BlockAlign == 0) throw RunTimeError(fault::kDivisionByZero);
  const std::int32_t bytes =
      wishedBytes < 1 ? ToInt32(format.AverageBytesPerSecond / kBlocksPerSecond) : wishedBytes;
  const std::int32_t wholeSamples = bytes - bytes % format.BlockAlign;
  if (wholeSamples < 1) throw RunTimeError(fault::kInvalidProcedureCall);
  return wholeSamples;
}

}  // namespace lobegraph
