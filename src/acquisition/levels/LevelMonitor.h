#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "acquisition/levels/ReadingMeter.h"

namespace lobegraph {

/// What the input sounds like now.
struct LevelStatus {
  float Level = 1.0F;       ///< by the chosen method
  bool Heard = false;       ///< a first look was taken
  bool Silent = false;      ///< nothing but zeros
  bool LeftSilent = false;  ///< of the two channels only the other one carries sound
  bool RightSilent = false;
  bool Clips = false;                    ///< samples at the end of the scale within the last look
  std::optional<double> ToneHz;          ///< where the tone is measured
  bool ToneStandsOut = false;            ///< it is heard now
  bool ToneHasLeft = false;              ///< it drifted out of the band in which it is followed
  std::optional<double> OtherToneHz;     ///< a second tone of equal strength
  std::optional<double> RatioDbHz;       ///< tone over noise, dB in 1 Hz
  std::optional<double> WordsPerMinute;  ///< of a keyed tone
  Band ReceiverBand = kUsualReceiverBand;
  std::shared_ptr<const PowerSpectrum> Spectrum;  ///< of the last three quarters of a second; null before
};

/// Listens while nothing is taken: keeps a level for thresholds and the sweep, finds the tone and the
/// receiver's band.
class LevelMonitor {
 public:
  /// @param meter shared with the readings; its tone is set here
  /// @param readingSeconds of a reading to come: a look is as long, at most a tenth of a second
  LevelMonitor(ReadingMeter& meter, double readingSeconds);

  /// Looks at what has come in since the last look, if it is enough.
  void Look(const ReadingCutter& sound);
  /// A reading was measured: it is the live level, and the tone is the readings' to follow.
  void Reading(const MeasuredReading& reading);
  const LevelStatus& Status() const { return status_; }

  /// Frames of the past that a look needs.
  static std::int64_t HistoryFrames(double samplesPerSecond);

 private:
  void Measure(const SoundStretch& sound);
  void Search(const SoundStretch& sound);
  void FindToneOf(ChannelMeter& channel, const PowerSpectrum& spectrum, bool isMain);

  ReadingMeter& meter_;
  std::int64_t lookFrames_;
  std::int64_t searchFrames_;
  std::int64_t nextLook_ = 0;  ///< count of frames at which it is due
  std::int64_t nextSearch_ = 0;
  std::int64_t lastKeyDown_ = 0;
  LevelStatus status_;
};

}  // namespace lobegraph
