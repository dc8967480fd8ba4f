#include "processing/bearing/Locator.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

struct CentreRow {
  const char* Locator;
  double Latitude, Longitude;
};

TEST(Locator, TheMiddleOfTheField) {
  for (const auto& [locator, latitude, longitude] :
       {CentreRow{"JO50", 50.5, 11}, CentreRow{"JO62QM", 52.520833, 13.375},
        CentreRow{"jo62qm", 52.520833, 13.375}, CentreRow{" JO62QM ", 52.520833, 13.375},
        CentreRow{"AA00", -89.5, -179}, CentreRow{"RR99", 89.5, 179},
        CentreRow{"RR99XX", 89.979167, 179.958333}, CentreRow{"FN31PR", 41.729167, -72.708333},
        CentreRow{"GF15VC", -34.895833, -56.208333}, CentreRow{"JO62QM55", 52.522917, 13.379167},
        CentreRow{"JO62QM55AA", 52.520920, 13.375174}}) {
    const auto centre = LocatorCentre(locator);
    ASSERT_TRUE(centre) << locator;
    EXPECT_NEAR(centre->LatitudeDeg, latitude, 1e-5) << locator;
    EXPECT_NEAR(centre->LongitudeDeg, longitude, 1e-5) << locator;
  }
}

TEST(Locator, WhatIsNone) {
  for (const char* text :
       {"", " ", "J", "JO", "JO6", "JO62Q", "JO62QM5", "SO62", "JS62", "JOA2", "JO6B", "JO62YM", "JO62QY",
        "JO62QMAA", "JO62QM55AA00", "JO 62", "J\xd6\x36\x32", "JO62QM!", "62JO"})
    EXPECT_FALSE(LocatorCentre(text)) << text;
}

struct WayRow {
  GlobePoint From, To;
  double BearingDeg, Km;
};

TEST(Locator, TheGreatCircle) {
  for (const WayRow& row : {WayRow{{0, 0}, {10, 0}, 0, 1111.9}, WayRow{{0, 0}, {0, 10}, 90, 1111.9},
                            WayRow{{0, 0}, {-10, 0}, 180, 1111.9}, WayRow{{0, 0}, {0, -10}, 270, 1111.9},
                            WayRow{{50, 170}, {50, -170}, 82.31, 1425.2},
                            // Berlin to New York: great circle, not the rhumb line of the map.
                            WayRow{{52.52, 13.405}, {40.7128, -74.006}, 296.02, 6385}}) {
    const auto way = WayBetween(row.From, row.To);
    ASSERT_TRUE(way);
    EXPECT_NEAR(way->BearingDeg, row.BearingDeg, 0.1);
    EXPECT_NEAR(way->Km, row.Km, row.Km * 0.001);
  }
}

TEST(Locator, BetweenTheSamePlaceAndItsOppositeThereIsNoBearing) {
  EXPECT_FALSE(WayBetween({52, 13}, {52, 13}));
  EXPECT_FALSE(WayBetween({52, 13}, {-52, -167}));
}

TEST(SignalBearing, IsANumberOrTwoLocators) {
  EXPECT_EQ(ReadSignalBearing("211.5")->Deg, 211.5);
  EXPECT_EQ(ReadSignalBearing("211.5")->How, "typed");
  EXPECT_EQ(ReadSignalBearing("-10")->Deg, 350);
  EXPECT_EQ(ReadSignalBearing("360")->Deg, 0);
  for (const char* text : {"JO62QM JO50", "jo62qm to jo50", "  JO62QM  to  JO50 "}) {
    const auto bearing = ReadSignalBearing(text);
    ASSERT_TRUE(bearing) << text;
    EXPECT_NEAR(bearing->Deg, 217.12, 0.1);
    EXPECT_EQ(bearing->How, "from JO62QM to JO50, 278 km");
  }
}

TEST(SignalBearing, WhatIsNone) {
  for (const char* text : {"", "north", "361", "-361", "nan", "inf", "1e999", "JO62QM", "JO62QM JO62QM",
                           "JO62QM 50", "JO62QM or JO50", "JO62QM to", "1 2"})
    EXPECT_FALSE(ReadSignalBearing(text)) << text;
}

}  // namespace
}  // namespace lobegraph
