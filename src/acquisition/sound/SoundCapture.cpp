#include "acquisition/sound/SoundCapture.h"

#include <algorithm>

namespace lobegraph {
namespace {

constexpr std::int32_t kSamplesPerSecond = 44100;
constexpr std::int16_t kBitsPerSample = 16;
constexpr std::int16_t kChannels = 2;
constexpr std::int32_t kAutomaticSize = 0;
constexpr int kPauseMs = 5;
constexpr std::uint32_t kLongestWaitMs = 2000;
constexpr const char* kNothingComes = "The sound input is open, but nothing has come from it for 2 seconds.";

}  // namespace

std::string SoundCardCapture::StartRecording(SourceMoves moves) {
  moves_ = moves;
  form_.FollowMoves(moves == SourceMoves::AreFollowed);
  form_.Initialize(kSamplesPerSecond, kBitsPerSample, kChannels, kAutomaticSize, "", failure_);
  if (!failure_.empty()) return failure_;
  blocksSeen_ = form_.BlocksAnalysed();
  form_.SoundStart();
  lastAskedMs_ = clock_.timeGetTime();
  silentMs_ = 0;
  failure_ = form_.Failure();
  return failure_;
}

void SoundCardCapture::StopRecording() {
  form_.SoundStop();
  form_.UninitializeSound();
}

bool SoundCardCapture::StartSoundCapture(SourceMoves moves) {
  if (state_.SoundCaptureActive && moves == moves_) return true;
  StartRecording(moves);
  const std::uint64_t blocksBefore = form_.BlocksAnalysed();
  while (SoundFailure().empty()) {
    if (form_.BlocksAnalysed() != blocksBefore) return true;
    Pause(pump_, clock_, kPauseMs);
  }
  StopRecording();
  return false;
}

std::string SoundCardCapture::SoundFailure() {
  if (!failure_.empty()) return failure_;
  if (!form_.Failure().empty()) {
    failure_ = form_.Failure();
  } else if (state_.SoundCaptureActive && NothingCameForTooLong()) {
    failure_ = kNothingComes;
  }
  return failure_;
}

bool SoundCardCapture::NothingCameForTooLong() {
  const std::int32_t nowMs = clock_.timeGetTime();
  const std::uint32_t sinceAsked = MsBetween(lastAskedMs_, nowMs);
  // A program that stood still itself (suspended, stopped) has not heard what waits: one long gap alone is no
  // silence.
  const bool heard = form_.BlocksAnalysed() != blocksSeen_;
  silentMs_ = heard ? 0 : silentMs_ + std::min(sinceAsked, kLongestWaitMs / 2);
  lastAskedMs_ = nowMs;
  blocksSeen_ = form_.BlocksAnalysed();
  return silentMs_ >= kLongestWaitMs;
}

}  // namespace lobegraph
