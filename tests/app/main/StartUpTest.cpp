// From nothing to a working window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run/RunCommands.h"
#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::IsEmpty;

class StartUpTest : public testing::Test, protected AppFixture {
 protected:
  void Load() { Form.Shell().Form_Load(); }
  void LoadWith(std::string_view key, std::string_view text) {
    Store.Put("Username", "N0CALL");
    Store.Put(key, text);
    Load();
  }
};

TEST_F(StartUpTest, TheFirstStartAsksForACallSignOnceAndKeepsIt) {
  Dialogs.Answer = "N0CALL";
  Load();
  ASSERT_EQ(Dialogs.Prompts.size(), 1U);
  EXPECT_EQ(Dialogs.Prompts[0].first, "Enter your call sign:");
  EXPECT_EQ(Dialogs.Prompts[0].second, " ");
  EXPECT_EQ(Store.Held("Username"), "N0CALL");
  EXPECT_EQ(Shared.UserName, "N0CALL");
  EXPECT_EQ(View.Caption, "Lobegraph V2.1.0     User = N0CALL");
  Load();
  EXPECT_EQ(Dialogs.Prompts.size(), 1U) << "the next start does not ask";
}

TEST_F(StartUpTest, ASingleBlankIsAskedForAgainAtTheNextStart) {
  Dialogs.Answer = " ";
  Load();
  EXPECT_TRUE(Store.Values.contains("Username"));
  EXPECT_EQ(Store.Held("Username"), " ");
  Load();
  EXPECT_EQ(Dialogs.Prompts.size(), 2U);
}

TEST_F(StartUpTest, ACancelledPromptStoresAnEmptyCallSign) {
  Dialogs.Answer.reset();
  Load();
  EXPECT_TRUE(Store.Values.contains("Username"));
  EXPECT_EQ(Store.Held("Username"), "");
  EXPECT_EQ(View.Caption, "Lobegraph V2.1.0     User = ");
  Load();
  EXPECT_EQ(Dialogs.Prompts.size(), 1U);
}

TEST_F(StartUpTest, AnEmptyAnswerIsStoredToo) {
  Dialogs.Answer = "";
  Load();
  EXPECT_TRUE(Store.Values.contains("Username"));
}

TEST_F(StartUpTest, ReadsTheStoreInTheOrderOfItsTableAndWritesOnlyTheCallSign) {
  Dialogs.Answer = "N0CALL";
  Load();
  std::vector<std::string> expected = {"get Username", "save Username=N0CALL"};
  for (const SettingRow& row : std::span(kSettingsTable).subspan<1>())
    expected.push_back("get " + std::string(row.Key));
  EXPECT_EQ(Store.Log, expected);
}

TEST_F(StartUpTest, ASecondStartWritesNothing) {
  LoadWith("Scale", "50");
  EXPECT_THAT(Only("save "), IsEmpty());
}

TEST_F(StartUpTest, NameAndCaptionComeBeforeTheSettings) {
  Store.Put("Commtrigger", "8");
  LoadWith("Scale", "50");
  const long caption = PlaceOf("caption Lobegraph V2.1.0     User = N0CALL");
  EXPECT_LT(PlaceOf("get Username"), PlaceOf("lblNotice=" + Shared.NoticeText));
  EXPECT_LT(PlaceOf("lblNotice=" + Shared.NoticeText), caption);
  EXPECT_LT(caption, PlaceOf("get Scale"));
  EXPECT_LT(PlaceOf("get Commtrigger"), PlaceOf("trigger open 8 57600"));
}

TEST_F(StartUpTest, AnEmptyStoreGivesTheDefaultWindow) {
  Load();
  EXPECT_EQ(View.Of(Slider1).Value, 35);
  EXPECT_EQ(Record().ScaleSetting, 35.F);
  EXPECT_EQ(View.Of(Slider2).Value, 60);
  EXPECT_EQ(View.Of(Slider2).Maximum, 120);
  EXPECT_EQ(Text(lblRotationTime), "60");
  for (const Control box : {chkAutoStart, chkAutoStop, chkTrigger})
    EXPECT_FALSE(View.Of(box).Checked) << RowOf(box).Name;
  EXPECT_TRUE(Shared.Settings.ShowLogScale);
  EXPECT_FALSE(Shared.Settings.LinearMode);
  EXPECT_EQ(View.WindowBackground, (Colour{224, 224, 224}));
  EXPECT_TRUE(View.Of(cmdCollectData).Enabled);
  EXPECT_EQ(Text(lblHint), kFirstHint);
  EXPECT_EQ(Text(lblSource), "Sound: line-in");
  EXPECT_EQ(Text(cboElements), "");
  EXPECT_NE(Text(lblNotice), "");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(StartUpTest, TheOperatorLabelStartsWithABlankAndTheName) {
  LoadWith("Scale", "35");
  EXPECT_EQ(Text(lblOperator), " N0CALL");
}

TEST_F(StartUpTest, StoredBoxesAreTicked) {
  Store.Put("AutoStart", "1");
  Store.Put("AutoStop", "1");
  LoadWith("Trigger", "1");
  for (const Control box : {chkAutoStart, chkAutoStop, chkTrigger})
    EXPECT_TRUE(View.Of(box).Checked) << RowOf(box).Name;
}

TEST_F(StartUpTest, TheBackgroundAndTheDisplayFlagsAreTakenOver) {
  Store.Put("LinearMode", "True");
  Store.Put("ShowLogScale", "False");
  LoadWith("PlotBackground", "255");
  EXPECT_TRUE(Shared.Settings.LinearMode);
  EXPECT_FALSE(Shared.Settings.ShowLogScale);
  EXPECT_EQ(View.WindowBackground, (Colour{255, 0, 0}));
}

TEST_F(StartUpTest, TheLevelColoursFollowThePeakInputLevel) {
  LoadWith("PeakInputLevel", "500");
  EXPECT_EQ(Shared.Thresholds.Low, 380.F);
  EXPECT_EQ(Shared.Thresholds.Overload, 440.F);
}

TEST_F(StartUpTest, TheLongestRotationSetsTheSlidersMaximum) {
  for (const auto& [minutes, seconds] : {std::pair{"2", 120}, {"1.5", 90}, {"20", 1200}, {"abc", 0}}) {
    LoadWith("MaxRotationTime", minutes);
    EXPECT_EQ(View.Of(Slider2).Maximum, seconds) << minutes;
  }
}

TEST_F(StartUpTest, AStoredRotationOf600SecondsSurvivesUntilItsMaximumIsRead) {
  Store.Put("MaxRotationTime", "20");
  LoadWith("RotateTime", "600");
  EXPECT_EQ(View.Of(Slider2).Value, 600);
  EXPECT_EQ(Text(lblRotationTime), "600");
  EXPECT_LT(PlaceOf("Slider2=600"), PlaceOf("Slider2 maximum 1200"));
}

TEST_F(StartUpTest, ARotationAboveTheMaximumIsCutToIt) {
  LoadWith("RotateTime", "600");
  EXPECT_EQ(View.Of(Slider2).Value, 120);
  EXPECT_EQ(Text(lblRotationTime), "120");
}

struct Meter {
  const char* Name;
  bool Roska;
  bool Gauge;
  std::vector<std::string> Calls;
  std::string Source;
};

class MeterStartUpTest : public StartUpTest, public testing::WithParamInterface<int> {
 protected:
  Meter Case() const {
    switch (GetParam()) {
      case 0:
        return {"tarven", false, false, {"show meter window", "meter open 7 38400"}, "TARVEN, COM7"};
      case 1:
        return {"roska", true, false, {"show meter window", "meter open 7 9600"}, "ROSKA, COM7"};
      default:
        return {"external", false, true, {}, "External meter program"};
    }
  }
};

TEST_P(MeterStartUpTest, OpensWhatItsMeterNeedsThenTheTriggerPort) {
  const Meter meter = Case();
  Store.Put("InputDeviceIsdBMeter", "True");
  Store.Put("ROSKAmeter", meter.Roska ? "True" : "False");
  Store.Put("GaugeBridge", meter.Gauge ? "True" : "False");
  Store.Put("Commtrigger", "8");
  LoadWith("Commport", "7");
  std::vector<std::string> calls = Only("show meter window");
  for (const std::string& call : Only("meter ")) calls.push_back(call);
  EXPECT_EQ(calls, meter.Calls);
  EXPECT_EQ(CountOf("trigger open 8 57600"), 1);
  if (!meter.Calls.empty()) {
    EXPECT_LT(PlaceOf(meter.Calls[0]), PlaceOf(meter.Calls[1]));
    EXPECT_LT(PlaceOf(meter.Calls[1]), PlaceOf("trigger open 8 57600"));
  }
  EXPECT_EQ(Sound.calls, "") << "no sound capture";
  EXPECT_EQ(Text(lblSource), meter.Source);
  EXPECT_TRUE(Shared.Run.InputReady);
  EXPECT_FALSE(Shared.Loading);
}

INSTANTIATE_TEST_SUITE_P(Meters, MeterStartUpTest, testing::Range(0, 3));

TEST_F(StartUpTest, TheSoundCardOpensTheTriggerPortOnly) {
  Store.Put("Commtrigger", "8");
  LoadWith("InputDeviceIsLineIn", "False");
  EXPECT_THAT(Only("meter "), IsEmpty());
  EXPECT_THAT(Only("trigger "), ElementsAre("trigger open 8 57600"));
  EXPECT_THAT(Only("show meter window"), IsEmpty());
  EXPECT_TRUE(Shared.Run.InputReady);
}

TEST_F(StartUpTest, TheWindowIsLoadingUntilTheEnd) {
  bool loadingAtPrompt = false;
  EXPECT_FALSE(Shared.Loading);
  Dialogs.Answer = "N0CALL";
  Store.Put("LinearMode", "perhaps");
  Dialogs.WhileOpen = [&] {
    loadingAtPrompt = Shared.Loading;
    Activate();
  };
  Load();
  EXPECT_TRUE(loadingAtPrompt);
  EXPECT_THAT(Surface.Operations, IsEmpty()) << "activation waits for the end of start-up";
}

struct BadValue {
  const char* Key;
  const char* Text;
  const char* Beginning;
};

class BadValueTest : public StartUpTest, public testing::WithParamInterface<BadValue> {};

TEST_P(BadValueTest, IsReportedOnceAndEndsTheProgramWhenItsDefaultIsDeclined) {
  Dialogs.Yes = false;
  testing::internal::CaptureStderr();
  LoadWith(GetParam().Key, GetParam().Text);
  const std::string errors = testing::internal::GetCapturedStderr();
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text, testing::StartsWith(GetParam().Beginning));
  EXPECT_THAT(Dialogs.Messages[0].Text,
              testing::MatchesRegex(".* in line [0-9]+ of procedure Form_Load of Form Form1"));
  EXPECT_EQ(End.AtOnce, 1);
  EXPECT_EQ(End.InGoodOrder, 0);
  EXPECT_LT(PlaceOf("message " + Dialogs.Messages[0].Text), PlaceOf("EndAtOnce"));
  EXPECT_THAT(Only("save "), IsEmpty()) << "nothing is saved on the way out";
  for (const char* part : {GetParam().Key, GetParam().Text, "memory of Lobegraph"})
    EXPECT_THAT(errors, testing::HasSubstr(part)) << "or the user cannot get in again";
}

TEST_P(BadValueTest, CanBeReplacedByItsDefaultSoThatTheProgramStarts) {
  testing::internal::CaptureStderr();
  LoadWith(GetParam().Key, GetParam().Text);
  testing::internal::GetCapturedStderr();
  ASSERT_EQ(Dialogs.Questions.size(), 1U);
  const std::string key = GetParam().Key;
  const auto row = std::find_if(kSettingsTable.begin(), kSettingsTable.end(),
                                [&](const SettingRow& each) { return each.Key == key; });
  EXPECT_EQ(Dialogs.Questions[0], "memory of Lobegraph\r\nsays " + key + "=" + GetParam().Text +
                                      ", which cannot be used.\r\n\r\nUse the default, " +
                                      std::string(row->Default) + ", instead?");
  EXPECT_EQ(Store.Held(key), row->Default);
  EXPECT_EQ(End.AtOnce, 0);
  EXPECT_FALSE(Shared.Loading);
  EXPECT_EQ(Text(lblSource), "Sound: line-in") << "start-up has gone on to its end";
}

TEST_F(StartUpTest, EveryBadValueIsOfferedItsDefaultInTurn) {
  Store.Put("Commtrigger", "-99999");
  testing::internal::CaptureStderr();
  LoadWith("SpikeDetectLevel", "40000");
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(Dialogs.Questions.size(), 2U);
  EXPECT_EQ(Dialogs.Messages.size(), 2U);
  EXPECT_EQ(End.AtOnce, 0);
}

TEST_F(StartUpTest, ADefaultThatCannotBeSavedIsNotAskedForForEver) {
  Store.FailsToSave = true;
  testing::internal::CaptureStderr();
  LoadWith("SpikeDetectLevel", "40000");
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(Dialogs.Questions.size(), 1U);
  EXPECT_EQ(End.AtOnce, 1);
}

INSTANTIATE_TEST_SUITE_P(Values, BadValueTest,
                         testing::Values(BadValue{"LinearMode", "perhaps",
                                                  "Error 13 (Type mismatch) in line "},
                                         BadValue{"GaugeBridge", "", "Error 13 (Type mismatch) in line "},
                                         BadValue{"SpikeDetectLevel", "40000", "Error 6 (Overflow) in line "},
                                         BadValue{"Commport", "99999", "Error 6 (Overflow) in line "}));

TEST_F(StartUpTest, ATextThatIsNoNumberCountsAs0) {
  LoadWith("PeakInputLevel", "abc");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_EQ(Shared.Settings.PeakInputLevel, 0.F);
}

TEST_F(StartUpTest, FileDialogsStartInTheCurrentFolder) {
  LoadWith("Scale", "35");
  EXPECT_EQ(Shared.WorkingFolder, "/home/ham/");
}

TEST_F(StartUpTest, TheFirstActivationDrawsTheEmptyPlot) {
  LoadWith("Scale", "35");
  Activate();
  EXPECT_EQ(Grids(), 1);
}

}  // namespace
}  // namespace lobegraph
