#include "data/formats/LevelTable.h"

#include <gmock/gmock.h>

#include "data/base/RunTimeError.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

struct Table {
  const char* Name;
  const char* Text;
};

/// Four directions: 0 dB at 0 degrees, -20 dB at 90, -6.02 dB at 180, -20 dB at 270.
const Table kSame[] = {
    {"bare levels", "10\n1\n5\n1\n"},
    {"angle and level by blanks", "0 10\n90 1\n180 5\n270 1\n"},
    {"tabs and dB", "0\t3.0\n90\t-17\n180\t-3.0206\n270\t-17\n"},
    {"semicolons and decimal commas", "Winkel;Pegel dB\n0,0;0,0\n90,0;-20,0\n180,0;-6,0206\n270,0;-20,0\n"},
    {"blanks and decimal commas", "0,0 10,0\n90,0 1,0\n180,0 5,0\n270,0 1,0\n"},
    {"columns in another order", "level,noise,azimuth\n10,5,0\n1,5,90\n5,5,180\n1,5,270\n"},
    {"our own table",
     "index,angle,level,dB\r\n0,0.000,10,0.000\r\n1,90.000,1,-20.000\r\n2,180.000,5,-6.021\r\n3,270.000,1,-"
     "20.000\r\n"},
    {"positive dB by its heading", "angle,gain dB\n0,20\n90,0\n180,13.9794\n270,0\n"},
    {"zenith first",
     "Zenith,Azimuth,Vertical,Horizontal,V+H "
     "(dBi)\n90,0,-99,1,1\n90,90,-99,-19,-19\n90,180,-99,-5.0206,-5.0206\n90,270,-99,-19,-19\n"},
    {"chamber",
     "Messwert;Einheit Messwert;Position "
     "Drehscheibe;Polarisation\n-40;dBm;0;H\n-60;dBm;90;H\n-46.0206;dBm;180;H\n-60;dBm;270;H\n"},
    {"positive dB of a level", "angle;level (dB)\n0;20\n90;0\n180;13.9794\n270;0\n"},
    {"what was measured in a line above",
     "Frequency (MHz);144\nPower (dBm);10;1\nangle;phase;level "
     "(dB)\n0;17;20\n90;18;0\n180;19;13.9794\n270;5;0\n"},
    {"numbers below another heading",
     "Frequency;Power\n144;10\n\nangle;phase;level (dB)\n0;17;20\n90;18;0\n180;19;13.9794\n270;5;0\n"},
    {"units in a line of their own", "angle;level\ndeg;dB\n0;20\n90;0\n180;13.9794\n270;0\n"},
    {"another table below it",
     "azimuth;gain dB\n0;20\n90;0\n180;13.9794\n270;0\n\nelevation;gain dB\n0;40\n90;40\n"},
    {"a heading on each page", "angle,level\n0,10\n90,1\nangle,level\n180,5\n270,1\n"},
    {"quoted", "\"angle\",\"level\"\n\"0\",\"10\"\n\"90\",\"1\"\n\"180\",\"5\"\n\"270\",\"1\"\n"},
    {"any order with blank lines", "180 5\n\n0 10\n270 1\n90 1\n\n"}};

TEST(LevelTable, FindsAnglesAndLevelsInWhateverWroteThem) {
  for (const Table& table : kSame) {
    const auto levels = WholeDegrees(ReadLevelTable(TextOf(table.Text)));
    EXPECT_NEAR(levels[0], 0, 1e-3) << table.Name;
    EXPECT_NEAR(levels[90], -20, 1e-3) << table.Name;
    EXPECT_NEAR(levels[180], -6.0206, 1e-3) << table.Name;
    EXPECT_NEAR(levels[270], -20, 1e-3) << table.Name;
  }
}

TEST(LevelTable, RowsThatAreNoNumbersArePassedOver) {
  EXPECT_EQ(ReadLevelTable(TextOf("a b\n0 10\nnothing here\n90 x\n180 5\n")).Points.size(), 2U);
}

TEST(LevelTable, AWordThatOnlyHoldsTheLettersIsNoUnit) {
  const auto levels = WholeDegrees(ReadLevelTable(TextOf("angle,feedback level\n0,10\n180,5\n")));
  EXPECT_NEAR(levels[180], -6.0206, 1e-3);
}

TEST(LevelTable, ATextWithoutNumbersIsRefused) {
  for (const char* text : {"", "abc\ndef\n", ";;;\n", "\n\n"})
    EXPECT_THROW(ReadLevelTable(TextOf(text)), RunTimeError) << text;
}

TEST(LevelTable, IsWrittenWithItsHeading) {
  const PatternTable table{.Rows = {{0, 0.0, 900.F, 0.0}, {1, 1.2, .5F, -65.105}}};
  EXPECT_EQ(WriteLevelTable(table), "index,angle,level,dB\r\n0,0.000,900,0.000\r\n1,1.200,.5,-65.105\r\n");
}

}  // namespace
}  // namespace lobegraph
