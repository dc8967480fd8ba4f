#include "data/formats/PatternFormats.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "data/formats/PatternFile.h"
#include "support/FaultOf.h"
#include "support/LopsidedTable.h"
#include "support/OneFile.h"
#include "support/TemporaryFolder.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string_view IdOf(const std::string& path, const std::string& bytes = {}, bool columns = false) {
  OneFile file(bytes);
  return FormatToRead(file, path, columns).Id;
}

TEST(PatternFormats, AreKnownByTheirEndingsInAnyCase) {
  EXPECT_EQ(IdOf("a.CSV"), "LevelList");
  EXPECT_EQ(IdOf("a.csv", {}, true), "LevelTable");
  EXPECT_EQ(IdOf("a.msi"), "Planet");
  EXPECT_EQ(IdOf("a.pln"), "Planet");
  EXPECT_EQ(IdOf("a.AZ"), "Splat");
  EXPECT_EQ(IdOf("a.ant"), "RadioMobile");
  EXPECT_EQ(IdOf("a.adf"), "Nsma");
  EXPECT_EQ(IdOf("a.nsma"), "Nsma");
  EXPECT_EQ(IdOf("a.nec"), "ModelTable");
  EXPECT_EQ(IdOf("a.out"), "ModelTable");
  EXPECT_EQ(IdOf("a.lbg"), "PatternFile");
  EXPECT_EQ(IdOf("noending"), "PatternFile");
}

TEST(PatternFormats, ATextFileIsKnownByWhatStandsInIt) {
  EXPECT_EQ(IdOf("a.txt", "-- RADIATION PATTERNS --"), "ModelTable");
  EXPECT_EQ(IdOf("a.txt", "Deg V dB H dB Tot dB"), "ModelTable");
  EXPECT_EQ(IdOf("a.txt", "359\r\n"), "PatternFile");
  EXPECT_EQ(IdOf("a.lbg", "-- RADIATION PATTERNS --"), "PatternFile") << "an ending of its own counts";
}

TEST(PatternFormats, AreWrittenByTheirEndings) {
  EXPECT_EQ(FormatToWrite("a.CSV", false)->Id, "LevelList");
  EXPECT_EQ(FormatToWrite("a.csv", true)->Id, "LevelTable");
  EXPECT_EQ(FormatToWrite("a.pln", true)->Id, "Planet");
  for (const char* name : {"a.nec", "a.out", "a.txt", "a.xyz", "a", ""})
    EXPECT_EQ(FormatToWrite(name, false), nullptr) << name;
}

TEST(PatternFormats, EachEndingIsNamedOnce) {
  EXPECT_THAT(EndingsWritten(), ElementsAre(".lbg", ".csv", ".msi", ".az", ".ant", ".adf"));
  EXPECT_THAT(EndingsRead(), ElementsAre(".lbg", ".csv", ".msi", ".pln", ".az", ".ant", ".adf", ".nsma",
                                         ".nec", ".out", ".txt", ".cut", ".aha", ".ava"));
}

TEST(PatternFormats, AWrittenTableIsReadBackWithinItsResolution) {
  const auto expected = WholeDegrees(LopsidedTable());
  PatternTable table = LopsidedTable();
  for (const TablePoint& point : table.Points)
    table.Rows.push_back({static_cast<int>(point.AngleDeg), point.AngleDeg, 1.F, point.LevelDb});
  for (const PatternFormat& format : PatternFormats()) {
    if (format.WriteTable == nullptr) continue;
    const auto levels = WholeDegrees(format.ReadTable(TextOf(format.WriteTable(table))));
    for (std::size_t d = 0; d < levels.size(); ++d)
      EXPECT_NEAR(levels[d], expected[d], 0.0051) << format.Id << " " << d;
  }
}

TEST(PatternFormats, ATextWithoutAPatternIsRefusedAsOne) {
  for (const PatternFormat& format : PatternFormats())
    for (const char* text :
         {"", "hello\nworld\n", "\x00\x01\x02", "NAME x\nHORIZONTAL 360\n", "PATCUT:,AZ\n"}) {
      OneFile file(text);
      ReadingsRecord record;
      const std::string path = "x" + std::string(format.Endings.substr(0, format.Endings.find(' ')));
      const LoadRules rules{.Columns = format.Columns.value_or(false)};
      EXPECT_TRUE(ReadPattern(file, path, rules, record).Error) << format.Id << " " << text;
    }
}

TEST(PatternFormats, AForeignPatternGetsTheUsualScaleAndADescriptionThatFitsIntoAPatternFile) {
  OneFile file("NAME a \"big\" one\nHORIZONTAL 2\n0 0\n180 20\n");
  ReadingsRecord record;
  EXPECT_FALSE(ReadPattern(file, "x.msi", {}, record).Error);
  EXPECT_EQ(record.ScaleSetting, 35.F);
  EXPECT_EQ(record.Description, "a big one");
  record.ScaleSetting = 60.F;
  ReadPattern(file, "x.msi", {.Overlay = true}, record);
  EXPECT_EQ(record.ScaleSetting, 60.F) << "over another pattern its scale counts";
}

TEST(PatternFormats, AListOfReadingsOrAPatternFileThatIsTooLargeIsRefusedAndNeverReadInPart) {
  const TemporaryFolder folder;
  DiskFiles disk;
  ReadingsRecord record;
  for (const char* name : {"a.csv", "a.lbg", "a.txt", "a"}) {
    std::ofstream(folder.File(name)) << std::string(FileAccess::kLargestFile, '5') << "\n";
    EXPECT_EQ(FaultOf([&] { ReadPattern(disk, folder.File(name), {}, record); }), fault::kPathFileAccess)
        << name;
  }
}

TEST(PatternFormats, ATableIsReadHoweverLargeItsFileIs) {
  const TemporaryFolder folder;
  std::ofstream file(folder.File("a.csv"));
  for (int turn = 0; turn < 1000; ++turn)
    for (int d = 0; d < 360; ++d) file << d << ",-" << (d == 30 ? 0 : 10) + turn % 2 << "\n";
  file.close();
  DiskFiles disk;
  ReadingsRecord record;
  EXPECT_FALSE(ReadPattern(disk, folder.File("a.csv"), {.Columns = true}, record).Error);
  EXPECT_EQ(record.NumReadings, 359);
  EXPECT_EQ(record.PeakIndex, 30);
}

TEST(PatternFormats, AnInputDeckOfAModelIsRefusedAndTheWayToAPatternNamed) {
  for (const char* deck :
       {"CM a dipole\nCE\nGW 1 21 0 -0.5 0 0 0.5 0 0.002\nGE\n", "\n  ce\r\n", "GW,1,21,0,0,0\n"})
    for (const char* name : {"a.nec", "a.out", "a.txt", "a.lbg", "a.inp"}) {
      OneFile file(deck);
      ReadingsRecord record;
      const auto error = ReadPattern(file, name, {}, record).Error;
      ASSERT_TRUE(error) << name;
      EXPECT_EQ(error->Number(), fault::kTypeMismatch);
      EXPECT_EQ(error->AdviceText(), "This is an input deck of NEC: run it through nec2c first.") << name;
    }
  OneFile file("CMB is no card\n");
  ReadingsRecord record;
  EXPECT_EQ(ReadPattern(file, "a.nec", {}, record).Error.value().AdviceText(), "");
}

TEST(PatternFormats, AFileThatIsNotThereIsNoOutcome) {
  DiskFiles disk;
  ReadingsRecord record;
  EXPECT_THROW(ReadPattern(disk, "none.msi", {}, record), RunTimeError);
}

TEST(PatternFormats, ARecordOf361ReadingsIsWrittenWith360) {
  ReadingsRecord record;
  record.NumReadings = 360;
  const std::string text = FormatToWrite("a.lbg", false)->WriteRecord(record, "V1");
  EXPECT_EQ(text.substr(0, text.find('\r')), "359");
}

std::string Contents(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

TEST(PatternFormats, EachRowHasInputsForItsFuzzTargetAndALineInThePageOnFormats) {
  const std::filesystem::path root = std::filesystem::path(LOBEGRAPH_TEST_FILES) / ".." / "..";
  const std::string page = Contents(root / "docs" / "formats.md");
  for (const PatternFormat& format : PatternFormats()) {
    EXPECT_TRUE(std::filesystem::is_directory(root / "fuzz" / "corpus" / format.Id)) << format.Id;
    for (const std::string_view ending : WordsOf(format.Endings))
      EXPECT_THAT(page, HasSubstr("`" + std::string(ending) + "`")) << format.Id;
  }
}

}  // namespace
}  // namespace lobegraph
