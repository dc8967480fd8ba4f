#pragma once

#include <cstdint>
#include <string>

#include "acquisition/sound/SoundDevice.h"
#include "acquisition/sound/SoundLevel.h"

namespace lobegraph {

/// The capture object behind the window: opens the sound input, hears its notices and keeps the shared level
/// fresh. Shows nothing; every error text is handed back.
class frmDX_Record final : public CaptureListener {
 public:
  /// Both must outlive this object. state: the level shared with the level read.
  frmDX_Record(CaptureDevice& device, SoundLevelState& state) : device_(device), state_(state) {}
  ~frmDX_Record() override { UninitializeSound(); }
  frmDX_Record(const frmDX_Record&) = delete;
  frmDX_Record& operator=(const frmDX_Record&) = delete;

  /// Whether what is opened from now on follows the source when the sound system puts another in its place.
  /// If not, that is a failure.
  void FollowMoves(bool follows) { followsMoves_ = follows; }

  /// Opens device and buffer; what was open before is released first.
  /// @param bufferBytes size of one notification block; below 1: 10 ms of audio.
  /// @param device identifier; empty: the first enumerated device.
  /// @param errorText out: empty on success.
  void Initialize(std::int32_t samplesPerSecond, std::int16_t bitsPerSample, std::int16_t channels,
                  std::int32_t bufferBytes, const std::string& device, std::string& errorText);
  /// Lets the buffer run, if there is one. SoundCaptureActive tells whether it does, Failure() why not.
  void SoundStart();
  void SoundStop();
  /// Releases all; errors are ignored, so it may be called in any state.
  void UninitializeSound();

  void DirectXEvent8_DXCallback(std::int32_t eventHandle) override;
  void CaptureFailed(const std::string& errorText) override;

  /// Size, format and positions of the buffer in use.
  const CaptureBuffer& Buffer() const { return buffer_; }
  /// Blocks analysed since this object was made.
  std::uint64_t BlocksAnalysed() const { return blocksAnalysed_; }
  /// Why capture did not start or ended by itself; empty while all is well.
  const std::string& Failure() const { return failure_; }
  /// Name of the source for people, empty before the first one was opened.
  std::string SourceName() const { return device_.Description(); }

 private:
  void OpenBuffer(const std::string& identifier);
  void CreateEvents();

  CaptureDevice& device_;
  SoundLevelState& state_;
  CaptureBuffer buffer_;
  bool hasBuffer_ = false;
  bool followsMoves_ = false;
  std::int32_t lastEventHandle_ = 0;
  std::uint64_t blocksAnalysed_ = 0;
  std::string failure_;
};

}  // namespace lobegraph
