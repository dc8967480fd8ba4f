#include "data/formats/PlanningFiles.h"

#include <gmock/gmock.h>

#include <cmath>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;
using ::testing::StartsWith;

/// A lopsided pattern with its strongest level at 40 degrees and a deep null.
PatternTable Pattern() {
  PatternTable table{.Name = "3 el, yagi", .CollectedBy = "DL1ABC", .CollectedDate = "20240201"};
  table.Horizontal = false;
  table.GainDbi = 8.25;
  table.BeamwidthDeg = 60.5;
  table.FrontToBackDb = 14.0;
  for (int d = 0; d < 360; ++d)
    table.Points.push_back(
        {1.0 * d, -15.0 + 15.0 * std::cos((d - 40) / 57.29577951) - (d == 200 ? 25.0 : 0.0)});
  return table;
}

using Reader = PatternTable (*)(std::string_view);
using Writer = std::string (*)(const PatternTable&);

struct Format {
  const char* Name;
  Writer Write;
  Reader Read;
  double ResolutionDb;
};
constexpr Format kFormats[] = {{"Planet", WritePlanet, ReadPlanet, 0.0051},
                               {"NSMA", WriteNsma, ReadNsma, 0.00051},
                               {"SPLAT", WriteSplat, ReadSplat, 0.0051},
                               {"Radio Mobile", WriteRadioMobile, ReadRadioMobile, 0.00051}};

TEST(PlanningFiles, EachFormatGivesBackWhatItWasGivenWithinItsResolution) {
  const auto expected = WholeDegrees(Pattern());
  for (const Format& format : kFormats) {
    const auto levels = WholeDegrees(format.Read(format.Write(Pattern())));
    for (std::size_t d = 0; d < levels.size(); ++d)
      EXPECT_NEAR(levels[d], expected[d], format.ResolutionDb) << format.Name << " " << d;
  }
}

TEST(PlanningFiles, ATextWithoutAPatternIsRefused) {
  for (const Format& format : kFormats)
    for (const char* text :
         {"", "hello\nworld\n", "\x00\x01\x02", "NAME x\nHORIZONTAL 360\n", "PATCUT:,AZ\n"})
      EXPECT_THROW(format.Read(text), RunTimeError) << format.Name << " " << text;
}

TEST(Planet, HasBothCutsWithoutMinusSignsAndNamesItsUnits) {
  const std::string text = WritePlanet(Pattern());
  EXPECT_THAT(text, StartsWith("NAME 3 el, yagi\r\n"));
  for (const char* line : {"\r\nH_WIDTH 60.50\r\n", "\r\nFRONT_TO_BACK 14.00\r\n", "\r\nGAIN 8.25 dBi\r\n",
                           "\r\nPOLARIZATION VERTICAL\r\n", "\r\nHORIZONTAL 360\r\n", "\r\n40 0.00\r\n",
                           "\r\nVERTICAL 360\r\n0 0.00\r\n", "\r\n359 0.00\r\n"})
    EXPECT_THAT(text, HasSubstr(line));
  EXPECT_EQ(text.find('-'), std::string::npos);
  EXPECT_THAT(text, HasSubstr("unknown"));
}

TEST(Planet, ReadsTheDirtOfOtherWriters) {
  const PatternTable table = ReadPlanet(
      "NAME x y\nFREQUENCY 2.437 GHz\nGAIN 6.00\nPOLARIZATION HORIZONTAL\nNOISE 7 what\nHORIZONTAL "
      "359\n0.00\t-0.0\n"
      "90 10\n180.0 20\n 270\t10\nVERTICAL 360\n0 55\n");
  EXPECT_EQ(table.Name, "x y");
  EXPECT_THAT(table.FrequencyMHz, Optional(2437.0));
  EXPECT_THAT(table.GainDbi, Optional(8.15)) << "without a unit it is over a dipole";
  EXPECT_THAT(table.Horizontal, Optional(true));
  ASSERT_EQ(table.Points.size(), 4U);
  EXPECT_EQ(WholeDegrees(table)[180], -20);
}

TEST(Nsma, HasTheRecordsInTheirOrder) {
  const std::string text = WriteNsma(Pattern());
  EXPECT_THAT(text, StartsWith("REVNUM:,NSMA WG16.99.050\r\nREVDAT:,19990520\r\n"));
  std::size_t at = 0;
  for (const char* line :
       {"ANTMAN:,DL1ABC", "MODNUM:,3 el  yagi", "GUNITS:,DBI/DBR", "MDGAIN:,8.25", "AZWIDT:,60.50",
        "FRTOBA:,14.00", "NOFREQ:,1", "NUMCUT:,1", "PATCUT:,AZ", "POLARI:,V/V", "NUPOIN:,361",
        "FSTLST:,-180,180", "-180.000,", "40.000,0.000,", "180.000,", "ENDFIL:,EOF"}) {
    const std::size_t found = text.find(std::string("\r\n") + line, at);
    ASSERT_NE(found, std::string::npos) << line;
    at = found;
  }
}

TEST(Nsma, ReadsTheDirtOfOtherWriters) {
  const PatternTable table = ReadNsma(
      "REVNUM:,NSMA WG16.99.050\nMODNUM:,abc ! the model\nPATFRE,144.3\nPATCUT:,EL\nNUPOIN:,2\n0,0\n10,-50\n"
      "PATCUT:,AZ\nPOLARI:,H/H\nNUPOIN:,3\n\xE2\x88\x92"
      "90,\xE2\x80\x93"
      "3.5,\n0.0,0.0,12\n90,-4\nPATCUT:,AZ\n0,-77\nENDFIL,EOF\n");
  EXPECT_EQ(table.Name, "abc");
  EXPECT_THAT(table.FrequencyMHz, Optional(144.3));
  EXPECT_THAT(table.Horizontal, Optional(true));
  ASSERT_EQ(table.Points.size(), 3U) << "one azimuth cut, and no elevation";
  EXPECT_EQ(WholeDegrees(table)[270], -3.5);
}

TEST(Splat, HoldsFieldStrengthsAndARotation) {
  const std::string text = WriteSplat(Pattern());
  EXPECT_THAT(text, StartsWith("0.0\n0\t"));
  EXPECT_THAT(text, HasSubstr("\n40\t1.000000\n"));
  const PatternTable table = ReadSplat("; made by hand\n 90.0\n0 1.0 ; front\n180\t0.1\n");
  EXPECT_EQ(WholeDegrees(table)[90], 0);
  EXPECT_NEAR(WholeDegrees(table)[270], -20, 1e-9);
}

TEST(Splat, AFieldOfNothingIsTheFaintestLevel) {
  EXPECT_EQ(WholeDegrees(ReadSplat("0\n0 1\n90 0\n180 1\n270 1\n"))[90], kFaintestDb);
}

TEST(RadioMobile, HoldsOneLevelALineAndTakesDecimalCommas) {
  const std::string text = WriteRadioMobile(Pattern());
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 360);
  EXPECT_THAT(text, HasSubstr("\r\n0.000\r\n"));
  std::string other;
  for (int d = 0; d < 541; ++d) other += d == 7 ? "0,0\n" : "-12,5\n";
  const PatternTable table = ReadRadioMobile(other);
  EXPECT_EQ(table.Points.size(), 360U) << "elevation follows";
  EXPECT_EQ(WholeDegrees(table)[8], -12.5);
}

}  // namespace
}  // namespace lobegraph
