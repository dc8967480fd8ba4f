#include "bench/Antenna.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <stdexcept>
#include <string>

namespace lobegraph {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kRadPerDeg = kPi / 180;

/// Half-wave dipole in its E plane, broadside at 0: cos(90 deg x sin b) / cos b, 0 along the wire.
/// Source: the standard far field of a thin dipole with a sinusoidal current.
double DipoleVoltage(double bearingDeg) {
  const double bearing = bearingDeg * kRadPerDeg;
  const double alongWire = std::cos(bearing);
  if (std::abs(alongWire) < 1e-9) return 0;
  return std::abs(std::cos(kPi / 2 * std::sin(bearing)) / alongWire);
}

double CardioidVoltage(double bearingDeg) { return (1 + std::cos(bearingDeg * kRadPerDeg)) / 2; }

struct Element {
  double PositionWavelengths;  ///< along the boom, forward positive
  double CurrentMagnitude;
  double CurrentPhaseDeg;
};

/// Reflector, driven element, director of a beam of our own: a fifth of a wavelength apart, with currents
/// chosen for a front-to-back ratio of 18 dB. Mutual coupling is in the currents.
constexpr std::array<Element, 3> kBeam{{{-0.2, 0.5, 150}, {0, 1, 0}, {0.2, 0.7, -120}}};

double BeamArrayFactor(double bearingDeg) {
  std::complex<double> sum = 0;
  for (const Element& element : kBeam) {
    const double pathPhase = 2 * kPi * element.PositionWavelengths * std::cos(bearingDeg * kRadPerDeg);
    sum += std::polar(element.CurrentMagnitude, element.CurrentPhaseDeg * kRadPerDeg + pathPhase);
  }
  return std::abs(sum);
}

double BeamVoltage(double bearingDeg) {
  return DipoleVoltage(bearingDeg) * BeamArrayFactor(bearingDeg) / BeamArrayFactor(0);
}

/// A vertical beside a mast: four ripples of 1 dB, and half a dB less to the back.
double OmniVoltage(double bearingDeg) {
  const double bearing = bearingDeg * kRadPerDeg;
  const double downDb = 0.5 * (1 - std::cos(4 * bearing)) + 0.25 * (1 - std::cos(bearing));
  return std::pow(10, -downDb / 20);
}

/// A beam with one strong lobe, 10 dB down, on its right.
double LopsidedVoltage(double bearingDeg) {
  const double forward = (1 + std::cos(bearingDeg * kRadPerDeg)) / 2;
  const double away = std::remainder(bearingDeg - 95, 360) / 25;
  return 0.05 + 0.95 * std::pow(forward, 3) + 0.4 * (1 - forward) * std::exp(-away * away);
}

/// A broadside array with lobes 25 dB down all round, and a null between each two. Source: C. L. Dolph, "A
/// current distribution for broadside arrays which optimizes the relationship between beam width and
/// side-lobe level", 1946.
double ArrayVoltage(double bearingDeg) {
  constexpr int kOrder = 5;
  const double peak = std::pow(10, 25.0 / 20);
  const double scale = std::cosh(std::acosh(peak) / kOrder);
  const double x = scale * std::cos(bearingDeg * kRadPerDeg / 2);
  const double size = std::abs(x);
  return std::abs(size <= 1 ? std::cos(kOrder * std::acos(x)) : std::cosh(kOrder * std::acosh(size))) / peak;
}

constexpr std::array<Antenna, 6> kAntennas{{
    {"dipole", "half-wave dipole, E plane: a figure of eight", &DipoleVoltage},
    {"cardioid", "cardioid with one null to the back", &CardioidVoltage},
    {"beam", "3-element beam with minor lobes", &BeamVoltage},
    {"array", "array with lobes 25 dB down all round", &ArrayVoltage},
    {"omni", "omnidirectional, with a ripple of 1 dB", &OmniVoltage},
    {"lopsided", "beam with a strong lobe on its right", &LopsidedVoltage},
}};

/// First bearing in steps of sign where the voltage has fallen by 3 dB, 180 when there is none.
double HalfPowerBearing(const VoltagePattern& voltage, double sign) {
  constexpr double kStepDeg = 0.1;
  const double limit = voltage(0) * std::pow(10, -3.0 / 20);
  const auto fallen = [&](double bearing) { return voltage(sign * bearing) <= limit; };
  double outer = kStepDeg;
  while (outer < 180 && !fallen(outer)) outer += kStepDeg;
  if (outer >= 180) return 180;
  double inner = outer - kStepDeg;
  while (outer - inner > 1e-6) (fallen((inner + outer) / 2) ? outer : inner) = (inner + outer) / 2;
  return outer;
}

}  // namespace

std::span<const Antenna> Antennas() { return kAntennas; }

const Antenna& AntennaNamed(std::string_view name) {
  const auto* found = std::ranges::find(kAntennas, name, &Antenna::Name);
  if (found == kAntennas.end()) throw std::invalid_argument("no antenna is named " + std::string(name));
  return *found;
}

double Voltage(std::string_view name, double bearingDeg) { return AntennaNamed(name).Voltage(bearingDeg); }

double TrueBeamwidthDeg(std::string_view name) { return BeamwidthDeg(AntennaNamed(name).Voltage); }

double BeamwidthDeg(const VoltagePattern& voltage) {
  return HalfPowerBearing(voltage, 1) + HalfPowerBearing(voltage, -1);
}

}  // namespace lobegraph
