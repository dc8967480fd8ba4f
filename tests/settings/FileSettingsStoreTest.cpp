#include "settings/FileSettingsStore.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <fstream>

#include "data/base/RunTimeError.h"
#include "settings/FileLock.h"
#include "settings/SettingsReader.h"
#include "settings/SettingsTable.h"
#include "settings/SettingsWriter.h"
#include "settings/StoreFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

using FileSettingsStoreTest = StoreFolder;

TEST_F(FileSettingsStoreTest, WhatIsSavedIsReadAndStandsInTheFileReadably) {
  EXPECT_TRUE(Save("Scale", "35"));
  EXPECT_TRUE(Save("Username", " "));
  EXPECT_TRUE(Save("Empty", ""));
  EXPECT_EQ(Get("Scale"), "35");
  EXPECT_EQ(Get("Username"), " ");
  EXPECT_EQ(Get("Empty"), "");
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nScale=35\nUsername= \nEmpty=\n");
  FileSettingsStore nextStart(folder_.Path().string());
  EXPECT_EQ(nextStart.Get("Lobegraph", "Settings", "Username", "none"), " ");
}

TEST_F(FileSettingsStoreTest, AMissingFolderFileSectionOrKeyMeansTheDefault) {
  FileSettingsStore nowhere(folder_.File("none"));
  EXPECT_EQ(nowhere.Get("Lobegraph", "Settings", "Scale", "35"), "35");
  EXPECT_EQ(Get("Scale", "35"), "35");
  Write("[Other]\nScale=1\n");
  EXPECT_EQ(Get("Scale", "35"), "35");
  EXPECT_FALSE(fs::exists(folder_.File("none"))) << "reading creates nothing";
}

TEST_F(FileSettingsStoreTest, TheFirstSaveMakesTheFolders) {
  FileSettingsStore store(folder_.File("a/b"));
  EXPECT_TRUE(store.Save("Lobegraph", "Settings", "Scale", "35"));
  EXPECT_EQ(ReadFile(folder_.File("a/b/lobegraph/Lobegraph.conf")), "[Settings]\nScale=35\n");
}

TEST_F(FileSettingsStoreTest, EachApplicationAndSectionIsItsOwn) {
  EXPECT_TRUE(store_.Save("GaugeBridge", "Settings", "Reading", "-30"));
  EXPECT_TRUE(store_.Save("Lobegraph", "Settings", "Reading", "1"));
  EXPECT_TRUE(store_.Save("Lobegraph", "Ports", "Reading", "2"));
  EXPECT_EQ(store_.Get("GaugeBridge", "Settings", "Reading", ""), "-30");
  EXPECT_EQ(store_.Get("Lobegraph", "Settings", "Reading", ""), "1");
  EXPECT_EQ(store_.Get("Lobegraph", "Ports", "Reading", ""), "2");
}

TEST_F(FileSettingsStoreTest, AReadSeesTheFileAsItIsNow) {
  for (int i = 0; i < 1000; ++i) {
    const std::string level =
        std::to_string(-10 - i % 80);  // always of one length: size and second stay the same
    Write("[Settings]\nReading=" + level + "\n", "GaugeBridge");
    ASSERT_EQ(store_.Get("GaugeBridge", "Settings", "Reading", "1"), level);
  }
  fs::remove(Path("GaugeBridge"));
  EXPECT_EQ(store_.Get("GaugeBridge", "Settings", "Reading", "1"), "1") << "a missing file means the default";
}

TEST_F(FileSettingsStoreTest, WhileAFileIsHalfWrittenTheLastWholeStateStands) {
  Write("[Settings]\nActive=Y\nReading=-30\n");
  EXPECT_EQ(Get("Reading"), "-30");
  for (const char* half : {"", "[Sett", "[Settings]\nActive=N\nReading=-4", "[Settings]\nReading=-45\nAct"}) {
    Write(half);
    EXPECT_EQ(Get("Reading"), "-30") << half;
    EXPECT_EQ(Get("Active"), "Y") << half;
  }
  Write("[Settings]\nActive=Y\nReading=-45\n");
  EXPECT_EQ(Get("Reading"), "-45");
}

TEST_F(FileSettingsStoreTest, OfAFileThatWasNeverReadWholeTheWholeLinesCount) {
  Write("[Settings]\nActive=Y\nReading=-3");
  EXPECT_EQ(Get("Active"), "Y");
  EXPECT_EQ(Get("Reading"), "none");
  Write("[Settings]\nActive=N\nReading=-45\nx");
  EXPECT_EQ(Get("Active"), "N") << "a half-written file is no last whole state";
  EXPECT_EQ(Get("Reading"), "-45");
}

TEST_F(FileSettingsStoreTest, TheLastWholeStateEndsWithTheFile) {
  Write("[Settings]\nReading=-30\n");
  EXPECT_EQ(Get("Reading"), "-30");
  fs::remove(Path());
  EXPECT_EQ(Get("Reading"), "none");
  Write("[Settings]\nReading=-45\nAct");
  EXPECT_EQ(Get("Reading"), "-45");
}

TEST_F(FileSettingsStoreTest, AWriteKeepsAHalfWrittenLastLineAndIsReadAllTheSame) {
  Write("[Settings]\nA=1\nB=2\nC=3");
  EXPECT_TRUE(Save("A", "9"));
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nA=9\nB=2\nC=3");
  EXPECT_EQ(Get("A"), "9");
  EXPECT_EQ(Get("B"), "2");
}

TEST_F(FileSettingsStoreTest, AWriteIntoAHalfWrittenFileKeepsTheLastWholeStateInForce) {
  Write("[Settings]\nA=1\nB=2\n");
  EXPECT_EQ(Get("B"), "2");
  Write("[Settings]\nB");
  EXPECT_TRUE(Save("A", "9"));
  EXPECT_EQ(Get("A"), "9");
  EXPECT_EQ(Get("B"), "2");
}

TEST_F(FileSettingsStoreTest, AWriteKeepsWhatOthersWroteMeanwhile) {
  EXPECT_TRUE(Save("Scale", "35"));
  Write("# by hand\n[Settings]\r\nfoo = bar\nScale=1\nwords\n\n[Ports]\nCOM1=/dev/ttyUSB0\n");
  EXPECT_TRUE(Save("Scale", "40"));
  EXPECT_EQ(ReadFile(Path()),
            "# by hand\n[Settings]\r\nfoo = bar\nScale=40\nwords\n\n[Ports]\nCOM1=/dev/ttyUSB0\n");
}

TEST_F(FileSettingsStoreTest, NoNameLeadsOutOfTheFolder) {
  std::ofstream(folder_.File("secret.conf")) << "[Settings]\nScale=1\n";
  using namespace std::string_view_literals;
  for (const auto name :
       {"../secret"sv, "/etc/passwd"sv, "a/b"sv, ""sv, "."sv, ".."sv, ".hidden"sv, "a\0b"sv}) {
    EXPECT_EQ(store_.Get(name, "Settings", "Scale", "35"), "35") << name;
    EXPECT_FALSE(store_.Save(name, "Settings", "Scale", "2")) << name;
  }
  EXPECT_FALSE(store_.Save(std::string(300, 'x'), "Settings", "Scale", "2"));
  EXPECT_EQ(store_.Get(std::string(300, 'x'), "Settings", "Scale", "35"), "35");
  EXPECT_EQ(ReadFile(folder_.File("secret.conf")), "[Settings]\nScale=1\n");
}

TEST_F(FileSettingsStoreTest, NamesThatCouldNotBeFoundAgainAreNotSaved) {
  EXPECT_FALSE(Save("a=b", "1"));
  EXPECT_FALSE(store_.Save("Lobegraph", "a]\n[b", "key", "1"));
  EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(FileSettingsStoreTest, WhenTheFileTurnsUnreadableTheLastWholeStateStands) {
  Write("[Settings]\nScale=40\n");
  EXPECT_EQ(Get("Scale"), "40");
  fs::remove(Path());
  fs::create_directory(Path());
  EXPECT_EQ(Get("Scale"), "40");
  EXPECT_FALSE(Save("Scale", "41"));
}

TEST_F(FileSettingsStoreTest, AFileThatIsFarTooLargeIsLeftAlone) {
  const std::string large = "[Settings]\nScale=40\n" + std::string(FileAccess::kLargestFile, '#') + "\n";
  Write(large);
  EXPECT_EQ(Get("Scale", "35"), "35");
  EXPECT_FALSE(Save("Scale", "41"));
  EXPECT_EQ(ReadFile(Path()).size(), large.size());
}

TEST_F(FileSettingsStoreTest, ReadingNeedsNoLock) {
  const FileLock other(Path() + ".lock", milliseconds(0));
  ASSERT_TRUE(other.Held());
  Write("[Settings]\nScale=1\n");
  EXPECT_EQ(Get("Scale"), "1");
}

TEST_F(FileSettingsStoreTest, WhileSomebodyHoldsTheLockAllSavesTogetherWaitOnce) {
  const FileLock other(Path() + ".lock", milliseconds(0));
  FileSettingsStore store(folder_.Path().string(), milliseconds(300));
  const auto started = std::chrono::steady_clock::now();
  for (int key = 0; key < 50; ++key)
    EXPECT_FALSE(store.Save("Lobegraph", "Settings", "Key" + std::to_string(key), "1"));
  const auto waited = std::chrono::steady_clock::now() - started;
  EXPECT_GE(waited, milliseconds(300));
  EXPECT_LT(waited, milliseconds(3000)) << "fifty would be 15 s";
}

TEST_F(FileSettingsStoreTest, WhatCouldNotBeSavedIsReadHereAndSavedLater) {
  Write("[Settings]\nScale=1\nTrigger=0\n");
  FileSettingsStore store(folder_.Path().string(), milliseconds(5));
  std::optional<FileLock> other;
  other.emplace(Path() + ".lock", milliseconds(0));
  EXPECT_FALSE(store.Save("Lobegraph", "Settings", "Scale", "35"));
  EXPECT_FALSE(store.Save("Lobegraph", "Settings", "Scale", "36"));
  EXPECT_EQ(store.Get("Lobegraph", "Settings", "Scale", "none"), "36");
  EXPECT_EQ(store.Get("Lobegraph", "Ports", "Scale", "none"), "none");
  EXPECT_EQ(Get("Scale"), "1") << "and nobody else reads it";
  EXPECT_TRUE(store.SomethingWaits());
  EXPECT_FALSE(store.SaveWaiting());
  other.reset();
  EXPECT_TRUE(store.SaveWaiting());
  EXPECT_FALSE(store.SomethingWaits());
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nScale=36\nTrigger=0\n");
}

TEST_F(FileSettingsStoreTest, WhatWaitsGoesWithTheNextSave) {
  FileSettingsStore store(folder_.Path().string(), milliseconds(5));
  {
    const FileLock other(Path() + ".lock", milliseconds(0));
    EXPECT_FALSE(store.Save("Lobegraph", "Settings", "Scale", "35"));
  }
  EXPECT_TRUE(store.Save("Lobegraph", "Settings", "Trigger", "1"));
  EXPECT_EQ(ReadFile(Path()), "[Settings]\nScale=35\nTrigger=1\n");
  EXPECT_FALSE(store.SomethingWaits());
}

TEST_F(FileSettingsStoreTest, WhatIsFleetingIsNeitherWaitedForNorTriedAgain) {
  const SettingToSave value{"Reading", "-30"};
  FileSettingsStore store(folder_.Path().string(), milliseconds(60'000));
  {
    const FileLock other(Path("GaugeBridge") + ".lock", milliseconds(0));
    EXPECT_FALSE(store.SaveAll("GaugeBridge", "Settings", {&value, 1}, Keeping::Fleeting));
  }
  EXPECT_FALSE(store.SomethingWaits());
  EXPECT_EQ(store.Get("GaugeBridge", "Settings", "Reading", "none"), "none");
  EXPECT_TRUE(store.SaveAll("GaugeBridge", "Settings", {&value, 1}, Keeping::Fleeting));
  EXPECT_EQ(store.Get("GaugeBridge", "Settings", "Reading", "none"), "-30");
}

TEST_F(FileSettingsStoreTest, SeveralValuesAreSavedInOneStep) {
  const std::array<SettingToSave, 2> values = {{{"Reading", "-30"}, {"Active", "Y"}}};
  EXPECT_TRUE(store_.SaveAll("GaugeBridge", "Settings", values, Keeping::Durable));
  EXPECT_EQ(ReadFile(Path("GaugeBridge")), "[Settings]\nReading=-30\nActive=Y\n");
  const std::array<SettingToSave, 2> bad = {{{"Reading", "-40"}, {"a=b", "Y"}}};
  EXPECT_FALSE(store_.SaveAll("GaugeBridge", "Settings", bad, Keeping::Durable));
  EXPECT_EQ(store_.Get("GaugeBridge", "Settings", "Reading", ""), "-30") << "not even the good one";
}

TEST_F(FileSettingsStoreTest, AFileWrittenAnewIsAChangeThoughItSaysTheSame) {
  EXPECT_EQ(store_.LastChange("GaugeBridge"), std::nullopt);
  Write("[Settings]\nReading=-30\n", "GaugeBridge");
  const auto first = store_.LastChange("GaugeBridge");
  ASSERT_TRUE(first);
  EXPECT_LT(std::abs(first->Age.count()), 5000);
  EXPECT_EQ(store_.LastChange("GaugeBridge")->Stamp, first->Stamp);
  fs::last_write_time(Path("GaugeBridge"), fs::file_time_type::clock::now() - std::chrono::hours(24));
  const auto second = store_.LastChange("GaugeBridge");
  EXPECT_NE(second->Stamp, first->Stamp);
  EXPECT_NEAR(static_cast<double>(second->Age.count()), 86'400'000, 5000);
}

TEST_F(FileSettingsStoreTest, WhatCannotBeReadWholeIsNoChange) {
  Write("[Settings]\nReading=-30\n", "GaugeBridge");
  const auto whole = store_.LastChange("GaugeBridge");
  Write("[Settings]\nReading=-4", "GaugeBridge");
  EXPECT_EQ(store_.LastChange("GaugeBridge")->Stamp, whole->Stamp);
  fs::remove(Path("GaugeBridge"));
  fs::create_directory(Path("GaugeBridge"));
  EXPECT_EQ(store_.LastChange("GaugeBridge")->Stamp, whole->Stamp);
}

TEST_F(FileSettingsStoreTest, StartUpNamesTheFileOfAValueThatIsNoBoolean) {
  Write("[Settings]\nLinearMode=perhaps\n");
  try {
    ReadSettings(store_);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), fault::kTypeMismatch);
    EXPECT_EQ(error.Detail(), Path() + ": [Settings] LinearMode=perhaps");
  }
}

TEST_F(FileSettingsStoreTest, EverythingSavedByTheWritersIsReadAtTheNextStart) {
  SettingsValues values = ReadSettings(store_);
  values.Username = "DL1\u00c4";
  values.StartupDelay = Currency::FromTenThousandths(3333);
  values.dBCalAdjust0dB = -12.5F;
  values.LinearMode = true;
  values.PlotBackground = 16777215;
  values.Input = {.InputDeviceIsLineIn = false, .InputDeviceIsdBMeter = true, .Commport = 7};
  EXPECT_TRUE(SaveUsername(store_, values.Username) && SaveMainWindowSettings(store_, values) &&
              SaveDialogSettings(store_, values) && SaveInputChoice(store_, values.Input) &&
              SaveCalibration(store_, values.dBCalAdjust0dB));
  FileSettingsStore nextStart(folder_.Path().string());
  EXPECT_EQ(ReadSettings(nextStart), values);
}

}  // namespace
}  // namespace lobegraph
