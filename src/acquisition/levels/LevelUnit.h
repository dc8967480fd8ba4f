#pragma once

#include <span>

namespace lobegraph {

/// Level of a sine whose samples have this mean square, in sample steps squared: its amplitude / 32.
float LevelOfPower(double meanSquare);
/// The mean square again.
double PowerOfLevel(double level);

/// Mean square of samples about their mean: an offset of the sound card is no sound. 0 for no samples.
double SoundPower(std::span<const float> samples);

/// dB of one power over another, held within +-300 so that silence has a number too.
double PowerDb(double power, double reference = 1.0);

/// Level of a ratio of tone to noise: 1000 at full scale. @param dbHz dB in 1 Hz
float LevelOfRatio(double dbHz, double fullScaleDbHz);

/// The full scale with which a ratio reads a little below full level: in the middle of the range in which the
/// level's box is green.
/// @param peakInputLevel the level of full scale on the plot
double FullScaleFor(double dbHz, double peakInputLevel);

}  // namespace lobegraph
