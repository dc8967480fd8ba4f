#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace lobegraph {

/// Received voltage by bearing (degrees, 0: the antenna looks at the source, clockwise), 1 in the main
/// direction.
using VoltagePattern = std::function<double(double bearingDeg)>;

/// An antenna whose true pattern is known from a formula.
struct Antenna {
  std::string_view Name;
  std::string_view Description;
  double (*Voltage)(double bearingDeg);
};

/// dipole, cardioid, beam, array, omni, lopsided.
std::span<const Antenna> Antennas();

/// @throws std::invalid_argument for a name that is none of Antennas().
const Antenna& AntennaNamed(std::string_view name);
double Voltage(std::string_view name, double bearingDeg);
double TrueBeamwidthDeg(std::string_view name);

/// Degrees between the two points on either side of bearing 0 where the voltage has first fallen by 3 dB, to
/// better than 0.01; 360 for a pattern that never does.
double BeamwidthDeg(const VoltagePattern& voltage);

}  // namespace lobegraph
