#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "acquisition/meters/SerialProtocol.h"
#include "settings/InputChoice.h"

namespace lobegraph {

/// How the levels of a source come in.
enum class Intake {
  SoundCard,  ///< the sound input is captured while a run is on
  Received,   ///< a meter sends them over its port, whenever it likes
  Polled,     ///< fetched at each sample from where a meter program publishes
};

/// All that the house knows of a level source; nobody else asks which one is chosen.
struct LevelSource {
  static constexpr std::size_t kMostKeys = 2;

  std::string_view Caption;  ///< in the input chooser
  std::string_view Name;     ///< beside the level; the COM number follows where a port is needed
  Intake Comes = Intake::SoundCard;
  /// The stored flags that are set for it, all others of the table being clear; null: no further flag.
  std::array<bool InputChoice::*, kMostKeys> Keys{};
  bool NeedsPort = false;                  ///< a COM port must be chosen and open
  std::string_view Baud = {};              ///< of the port that is opened for it; empty: none ever is
  SerialProtocol Protocol = nullptr;       ///< of what comes from that port
  std::string_view CalibrateCommand = {};  ///< sent to its port when the calibrate sweep is asked for

  bool IsMeter() const { return Comes != Intake::SoundCard; }
};

/// One row a source, in the order of the chooser's options.
std::span<const LevelSource> LevelSources();

/// The source that delivers the level. Of a store that was written by hand and names several meters the meter
/// program counts, then the serial meter with a flag of its own.
const LevelSource& SourceOf(const InputChoice& choice);

/// The source that the chooser ticks when it opens. Deliberate: of a store that names both, the serial meter
/// with a flag of its own is ticked, though the level comes from the meter program.
const LevelSource& SourceToTick(InputChoice choice);

/// Sets the flags of a source and clears those of every other; the ports stay.
void Choose(const LevelSource& source, InputChoice& choice);

/// What delivers the level, as the main window names it: "TARVEN, COM3".
/// @param soundSource name of the opened sound source; empty before the first capture
std::string SourceLabel(const InputChoice& choice, const std::string& soundSource);

}  // namespace lobegraph
