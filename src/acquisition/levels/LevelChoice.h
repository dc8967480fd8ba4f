#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace lobegraph {

/// What the level of the sound input is made of. In each of them a full-scale sine is 1024.
enum class LevelMethod {
  Peaks,          ///< the largest sample of the newest 5 ms
  AllOfTheSound,  ///< rms of every sample of the reading
  Tone,           ///< a narrow band around the receiver's tone
  ToneOverNoise,  ///< the tone by the noise beside it
};

/// Which channels are heard.
enum class SoundChannel {
  Left,
  Right,
  Sum,       ///< the mean of both
  Quotient,  ///< left by right: the right one hears a fixed antenna
};

struct LevelMethodRow {
  LevelMethod Method;
  std::string_view Name;     ///< for people
  std::string_view Stored;   ///< in the store and on a command line
  std::string_view Assumes;  ///< what must hold for its levels to be true
};
inline constexpr std::array<LevelMethodRow, 4> kLevelMethods{{
    {LevelMethod::Peaks, "Peaks", "peaks", "A steady signal well above the noise, AGC off."},
    {LevelMethod::AllOfTheSound, "All of the sound", "all", "A signal well above the noise, AGC off."},
    {LevelMethod::Tone, "The tone", "tone",
     "A steady tone (a carrier or a beacon, heard in CW or SSB), AGC off."},
    {LevelMethod::ToneOverNoise, "The tone over the noise", "tone-over-noise",
     "A steady tone. AGC may stay on: the noise heard is the receiver's own, equal in all directions, and "
     "above the "
     "sound card's."},
}};

struct SoundChannelRow {
  SoundChannel Channel;
  std::string_view Name;
  std::string_view Stored;
};
inline constexpr std::array<SoundChannelRow, 4> kSoundChannels{{
    {SoundChannel::Left, "Left", "left"},
    {SoundChannel::Right, "Right", "right"},
    {SoundChannel::Sum, "Both", "sum"},
    {SoundChannel::Quotient, "Left by right (a fixed antenna)", "quotient"},
}};

/// The row of a stored text; the first of all methods, the sum of the channels, for a text that is none.
const LevelMethodRow& LevelMethodOf(std::string_view stored);
const SoundChannelRow& SoundChannelOf(std::string_view stored);
const LevelMethodRow& RowOf(LevelMethod method);
const SoundChannelRow& RowOf(SoundChannel channel);

/// How the sound input's level is measured.
struct LevelChoice {
  LevelMethod Method = LevelMethod::Peaks;
  SoundChannel Channel = SoundChannel::Sum;
  bool Keyed = false;                  ///< the tone is that of a keyed beacon
  std::optional<double> FixedHz = {};  ///< the tone stays here
  std::optional<double> LastHz = {};   ///< where it was found last
  double FullScaleDbHz = 80.0;         ///< tone over noise, dB in 1 Hz, that is level 1000
};

}  // namespace lobegraph
