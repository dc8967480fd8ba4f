#include "bench/Antenna.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace lobegraph {
namespace {

double DownDb(std::string_view antenna, double bearingDeg) {
  return -20 * std::log10(Voltage(antenna, bearingDeg));
}

TEST(Antennas, AreThoseThatUsersTryTheProgramWith) {
  std::vector<std::string_view> names;
  for (const Antenna& antenna : Antennas()) names.push_back(antenna.Name);
  EXPECT_THAT(names, ::testing::ElementsAre("dipole", "cardioid", "beam", "array", "omni", "lopsided"));
}

TEST(Antennas, AreStrongestStraightAheadAndNeverNegative) {
  for (const Antenna& antenna : Antennas()) {
    EXPECT_DOUBLE_EQ(antenna.Voltage(0), 1) << antenna.Name;
    for (double bearing = -720; bearing <= 720; bearing += 0.5) {
      EXPECT_LE(antenna.Voltage(bearing), 1 + 1e-12) << antenna.Name << bearing;
      EXPECT_GE(antenna.Voltage(bearing), 0) << antenna.Name << bearing;
    }
  }
}

TEST(Antennas, RepeatAfterATurnAndAllButTheLopsidedOneAreTheSameOnBothSides) {
  for (const Antenna& antenna : Antennas())
    for (double bearing = 0; bearing < 360; bearing += 7) {
      EXPECT_NEAR(antenna.Voltage(bearing), antenna.Voltage(bearing + 360), 1e-9) << antenna.Name;
      if (antenna.Name == "lopsided") continue;
      EXPECT_NEAR(antenna.Voltage(bearing), antenna.Voltage(-bearing), 1e-9) << antenna.Name;
    }
}

TEST(Antennas, TheLopsidedOneHasItsLobeOnTheRight) {
  EXPECT_NEAR(DownDb("lopsided", 95), 10, 2);
  EXPECT_GT(DownDb("lopsided", -95), DownDb("lopsided", 95) + 5);
}

TEST(Antennas, AnUnknownNameIsRefused) {
  EXPECT_THROW(AntennaNamed("loop"), std::invalid_argument);
  EXPECT_THROW(TrueBeamwidthDeg(""), std::invalid_argument);
}

TEST(Antennas, TheDipoleHearsNothingAlongItsWire) {
  EXPECT_NEAR(Voltage("dipole", 90), 0, 1e-9);
  EXPECT_NEAR(Voltage("dipole", 270), 0, 1e-9);
  EXPECT_NEAR(Voltage("dipole", 180), 1, 1e-12);
  EXPECT_NEAR(Voltage("dipole", 30), std::cos(M_PI / 4) / std::cos(M_PI / 6), 1e-12);
}

TEST(Antennas, TheCardioidHasItsNullBehind) {
  EXPECT_NEAR(Voltage("cardioid", 180), 0, 1e-12);
  EXPECT_NEAR(DownDb("cardioid", 90), 6.02, 0.01);
}

TEST(Antennas, TheBeamHasAFrontToBackOf15To20DbAndMinorLobes) {
  EXPECT_GE(DownDb("beam", 180), 15);
  EXPECT_LE(DownDb("beam", 180), 20);
  int lobes = 0;
  double strongestBackDb = 100;
  for (double bearing = 1; bearing < 359; bearing += 0.5) {
    const double here = Voltage("beam", bearing);
    if (here > Voltage("beam", bearing - 0.5) && here >= Voltage("beam", bearing + 0.5)) ++lobes;
    if (bearing > 90 && bearing < 270) strongestBackDb = std::min(strongestBackDb, DownDb("beam", bearing));
  }
  EXPECT_GE(lobes, 2);
  EXPECT_GE(strongestBackDb, 15);
}

TEST(Antennas, TheOmniRipplesByLittleMoreThanADecibel) {
  double mostDb = 0;
  for (double bearing = 0; bearing < 360; bearing += 0.5) mostDb = std::max(mostDb, DownDb("omni", bearing));
  EXPECT_GT(mostDb, 1);
  EXPECT_LT(mostDb, 1.6);
}

struct WidthCase {
  const char* Name;
  double Deg;
};

TEST(Beamwidth, OfTheAntennasIsKnown) {
  const double cardioid = 2 * std::acos(2 * std::pow(10, -0.15) - 1) * 180 / M_PI;
  const double peak = std::pow(10, 25.0 / 20);
  const double array =
      4 * std::acos(std::cosh(std::acosh(peak * std::pow(10, -0.15)) / 5) / std::cosh(std::acosh(peak) / 5)) *
      180 / M_PI;
  for (const WidthCase& c :
       {WidthCase{"cardioid", cardioid}, {"dipole", 77.95}, {"beam", 62.23}, {"array", array}, {"omni", 360}})
    EXPECT_NEAR(TrueBeamwidthDeg(c.Name), c.Deg, 0.01) << c.Name;
}

TEST(Beamwidth, StandsWhereTheVoltageIsDownBy3Db) {
  for (const char* name : {"dipole", "cardioid", "beam", "array"})
    EXPECT_NEAR(DownDb(name, TrueBeamwidthDeg(name) / 2), 3, 0.001) << name;
}

TEST(Beamwidth, OfALopsidedPatternAddsBothSides) {
  const auto lopsided = [](double bearing) {
    return std::pow(10, -(bearing > 0 ? bearing / 10 : -bearing / 4) / 20);
  };
  EXPECT_NEAR(BeamwidthDeg(lopsided), 30 + 12, 0.01);
}

}  // namespace
}  // namespace lobegraph
