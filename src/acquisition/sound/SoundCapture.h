#pragma once

#include <cstdint>
#include <string>

#include "acquisition/core/Clock.h"
#include "acquisition/sound/frmDX_Record.h"

namespace lobegraph {

/// Title of the box, with an exclamation icon, that shows why the sound input failed.
inline constexpr const char* kSoundErrorTitle = "DirectSound Error";

/// What it means that the sound server puts another source in the place of the one that is captured: because
/// it was pulled out, or because the user chose another.
enum class SourceMoves {
  AreFailures,  ///< readings of one turn come from one source
  AreFollowed,  ///< the user is setting the input up
};

/// What a collection and a calibrate sweep ask of the sound input.
class SoundCapture {
 public:
  virtual ~SoundCapture() = default;
  /// True when capture runs; at once when it already did so, else as soon as one fresh block was analysed, so
  /// that a level left from the capture before cannot start a collection. Yields while it waits, at most
  /// about 2 seconds.
  virtual bool StartSoundCapture(SourceMoves moves) = 0;
  virtual void StopSoundCapture() = 0;
  /// Why the last start failed or capture has ended since; empty while all is well. Asked after a yield: a
  /// source from which nothing came for 2 seconds counts as failed.
  virtual std::string SoundFailure() = 0;
  /// Name of the source for people, empty before the first start.
  virtual std::string SoundSourceName() const = 0;
};

/// The sound card's capture as the main window starts and stops it.
class SoundCardCapture final : public SoundCapture {
 public:
  SoundCardCapture(frmDX_Record& form, SoundLevelState& state, Clock& clock, EventPump& pump)
      : form_(form), state_(state), clock_(clock), pump_(pump) {}

  /// Opens the user's default input at 44.1 kHz, 16 bits, two channels in 10 ms blocks, and lets it run.
  /// @return the error text for a box titled kSoundErrorTitle; empty when capture runs.
  std::string StartRecording(SourceMoves moves = SourceMoves::AreFailures);
  void StopRecording();

  bool StartSoundCapture(SourceMoves moves) override;
  void StopSoundCapture() override { StopRecording(); }
  std::string SoundFailure() override;
  std::string SoundSourceName() const override { return form_.SourceName(); }

 private:
  bool NothingCameForTooLong();

  frmDX_Record& form_;
  SoundLevelState& state_;
  Clock& clock_;
  EventPump& pump_;
  SourceMoves moves_ = SourceMoves::AreFailures;  ///< of the capture that runs
  std::string failure_;
  std::uint64_t blocksSeen_ = 0;
  std::int32_t lastAskedMs_ = 0;
  std::uint32_t silentMs_ = 0;  ///< since the last block, as far as this program was awake
};

}  // namespace lobegraph
