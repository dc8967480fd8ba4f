#include "acquisition/sound/frmDX_Record.h"

#include <vector>

#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

void frmDX_Record::Initialize(std::int32_t samplesPerSecond, std::int16_t bitsPerSample,
                              std::int16_t channels, std::int32_t bufferBytes, const std::string& device,
                              std::string& errorText) {
  UninitializeSound();
  failure_.clear();
  errorText.clear();
  try {
    const std::string identifier = device.empty() ? device_.FirstDevice() : device;
    buffer_.Format = PcmFormat(samplesPerSecond, bitsPerSample, channels);
    buffer_.HalfBytes = HalfBufferBytes(buffer_.Format, bufferBytes);
    OpenBuffer(identifier);
  } catch (const RunTimeError& error) {
    errorText = error.Description();
  } catch (const CaptureError& error) {
    errorText = error.what();
  }
  if (!errorText.empty()) device_.Close();
}

void frmDX_Record::OpenBuffer(const std::string& identifier) {
  buffer_.BufferBytes = ToInt32(2.0 * buffer_.HalfBytes);
  buffer_.FollowsMoves = followsMoves_;
  CreateEvents();
  device_.Open(identifier, buffer_, *this);
  hasBuffer_ = true;
}

/// Handles are never used twice: a late notice of an earlier capture means nothing to this one.
void frmDX_Record::CreateEvents() {
  buffer_.Positions[0] = {1, ++lastEventHandle_};
  buffer_.Positions[1] = {buffer_.HalfBytes, ++lastEventHandle_};
  buffer_.Positions[2] = {-1, ++lastEventHandle_};
}

void frmDX_Record::SoundStart() {
  if (!hasBuffer_) return;
  failure_.clear();
  try {
    device_.Start();
    state_.SoundCaptureActive = true;
  } catch (const CaptureError& error) {
    CaptureFailed(error.what());
  }
}

void frmDX_Record::SoundStop() {
  if (hasBuffer_) device_.Stop();
  state_.SoundCaptureActive = false;
}

void frmDX_Record::UninitializeSound() {
  if (hasBuffer_) device_.Close();
  hasBuffer_ = false;
  buffer_ = {};
  state_.SoundCaptureActive = false;
}

void frmDX_Record::DirectXEvent8_DXCallback(std::int32_t eventHandle) {
  if (!hasBuffer_) return;
  const bool secondHalfIsFull = eventHandle == buffer_.Positions[0].EventHandle;
  if (!secondHalfIsFull && eventHandle != buffer_.Positions[1].EventHandle) return;
  std::vector<std::byte> block(static_cast<std::size_t>(buffer_.HalfBytes));
  device_.Read(secondHalfIsFull ? buffer_.HalfBytes : 0, block);
  AnalyseSoundBlock(block, state_);
  ++blocksAnalysed_;
}

void frmDX_Record::CaptureFailed(const std::string& errorText) {
  failure_ = errorText;
  state_.SoundCaptureActive = false;
}

}  // namespace lobegraph
