// What the serial meters send, and the external meter program's values.
#include "acquisition/meters/dBMeter.h"

#include "acquisition/meters/ExternalMeter.h"
#include "data/base/RunTimeError.h"
#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Rig {
  MeterState State;
  SettingsValues Settings;
  test::FakeDisplay Display;
  RecordingStore Store;
  dBMeter Meter{State, Settings, Display};
  ExternalMeter External{Store, Meter, State, Display};

  explicit Rig(bool roska = false) {
    Settings.Input.InputDeviceIsdBMeter = true;
    Settings.Input.ROSKAmeter = roska;
  }
  float Thrice(const std::string& text) {
    Meter.ConvertReading(text);
    Meter.ConvertReading(text);
    return Meter.ConvertReading(text);
  }
  void PollThrice() {
    for (int i = 0; i < 3; ++i) External.Poll();
  }
  void Publish(const std::string& active, const std::string& reading) {
    Store.Put("Active", active, "GaugeBridge");
    Store.Put("Reading", reading, "GaugeBridge");
  }
};

TEST(ConvertReading, FullScaleThreeTimesIs60dBAndLevel1000) {
  Rig rig;
  EXPECT_FLOAT_EQ(rig.Thrice("600"), 1000.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  EXPECT_EQ(rig.Display.Indicator, StatusColour::Green);
}

TEST(ConvertReading, AboveTheRangeIsClampedAndYellow) {
  Rig rig;
  EXPECT_FLOAT_EQ(rig.Thrice("700"), 1000.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterAverage, 700.0F);
  EXPECT_EQ(rig.Display.Indicator, StatusColour::Yellow);
}

TEST(ConvertReading, JustAbove601IsClamped) {
  Rig rig;
  rig.Thrice("601.05");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  EXPECT_EQ(rig.Display.Indicator, StatusColour::Yellow);
}

TEST(ConvertReading, DeliberatelyBetween600And601PassesUnclamped) {
  Rig rig;
  rig.Thrice("601");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.1F);
  EXPECT_EQ(rig.Display.Indicator, StatusColour::Green);
  rig.Thrice("601.5");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
}

TEST(ConvertReading, DeliberatelyTheFirstTwoValuesAreAveragedWithZeros) {
  Rig rig;
  rig.Meter.ConvertReading("300");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 10.0F);
  rig.Meter.ConvertReading("300");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 20.0F);
  rig.Meter.ConvertReading("300");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 30.0F);
}

TEST(ConvertReading, TheHistoryHoldsTheNewestFirst) {
  Rig rig;
  for (const char* text : {"1", "2", "3", "4"}) rig.Meter.ConvertReading(text);
  EXPECT_THAT(rig.State.MeterHistory, ElementsAre(4.0F, 3.0F, 2.0F));
  EXPECT_FLOAT_EQ(rig.State.MeterAverage, 3.0F);
  EXPECT_EQ(rig.State.ValuesReceived, 4U);
}

TEST(ConvertReading, ACalibrationAboveTheAverageIs0dBAndLevel1) {
  Rig rig;
  rig.Settings.dBCalAdjust0dB = 400.0F;
  EXPECT_FLOAT_EQ(rig.Thrice("300"), 1.0F);
  EXPECT_EQ(rig.State.MeterDb, 0.0F);
}

TEST(ConvertReading, TheCalibrationIsSubtracted) {
  Rig rig;
  rig.Settings.dBCalAdjust0dB = -168.0F;
  EXPECT_FLOAT_EQ(rig.Thrice("432"), 1000.0F);
}

TEST(ConvertReading, TextThatIsNoNumberIs0AndABeginningNumberCounts) {
  Rig rig;
  rig.Thrice("TARVEN");
  EXPECT_EQ(rig.State.MeterAverage, 0.0F);
  rig.Thrice("");
  EXPECT_EQ(rig.State.MeterAverage, 0.0F);
  rig.Thrice("30x");
  EXPECT_FLOAT_EQ(rig.State.MeterAverage, 30.0F);
}

TEST(ConvertReading, NoiseThatLooksLikeAHugeNumberIsFullScaleAndNoFault) {
  for (const char* text : {"1e999", "9999999999999999999999999999999999999999999999999999999999999999"}) {
    Rig rig;
    EXPECT_FLOAT_EQ(rig.Thrice(text), 1000.0F);
    EXPECT_FLOAT_EQ(rig.Thrice("300"), 31.622776F) << "and it leaves nothing behind";
  }
}

/// Received text, the values it gives.
struct ParseRow {
  const char* Name;
  bool Roska;
  std::string Text;
  std::vector<std::string> Readings;
};
class Parsing : public ::testing::TestWithParam<ParseRow> {};

const ParseRow kParseRows[] = {
    {"RoskaTwoReadings", true, "123;456;", {"123", "456"}},
    {"RoskaEveryDigit", true, "109;238;476;5;", {"109", "238", "476", "5"}},
    {"RoskaTheNeighboursOfTheDigitsAreNone", true, "1/2:3;", {"123"}},
    {"RoskaASpaceEmptiesTheBuffer", true, "12 34;", {"34"}},
    {"RoskaAnEmptyBufferConvertsAfterASpace", true, "123; ;", {"123", ""}},
    {"RoskaOtherCharactersAreIgnored", true, "a1\r\nb2.-3;", {"123"}},
    {"RoskaNothingWithoutItsEnd", true, "123", {}},
    {"TarvenOneReading", false, "\r345 ", {"345"}},
    {"TarvenAMinusCancels", false, "\r345- ", {}},
    {"TarvenAMinusStopsCapturing", false, "\r34-5 ", {}},
    {"TarvenALineFeedEmptiesAndCapturesOn", false, "\r12\n345 ", {"345"}},
    {"TarvenNothingBeforeACarriageReturn", false, "345 ", {}},
    {"TarvenOneReadingPerCarriageReturn", false, "\r345 678 \r9 ", {"345", "9"}},
    {"TarvenTheCarriageReturnEmpties", false, "\r12\r345 ", {"345"}},
    {"TarvenOtherCharactersJoin", false, "\r34.5 ", {"34.5"}},
};

TEST_P(Parsing, AsOneText) {
  Rig rig(GetParam().Roska);
  rig.Meter.ParseChars(GetParam().Text);
  EXPECT_EQ(rig.Display.Readings, GetParam().Readings);
}

TEST_P(Parsing, SplitAtEveryByte) {
  const std::string& text = GetParam().Text;
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    Rig rig(GetParam().Roska);
    rig.Meter.ParseChars(text.substr(0, cut));
    rig.Meter.ParseChars(text.substr(cut));
    EXPECT_EQ(rig.Display.Readings, GetParam().Readings) << "cut at " << cut;
  }
}

TEST_P(Parsing, ByteByByte) {
  Rig rig(GetParam().Roska);
  for (const char character : GetParam().Text) rig.Meter.ParseChars({&character, 1});
  EXPECT_EQ(rig.Display.Readings, GetParam().Readings);
}
INSTANTIATE_TEST_SUITE_P(Meters, Parsing, ::testing::ValuesIn(kParseRows),
                         [](const auto& row) { return row.param.Name; });

TEST(ParseChars, RoskaReadingsAreTenthsOfADecibelAndCounted) {
  Rig rig(true);
  rig.Meter.ParseChars("123;");
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 123.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 4.1F);
  rig.Meter.ParseChars("456;");
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 456.0F);
  EXPECT_EQ(rig.State.MeterReadingCount, 2);
}

TEST(ParseChars, RoskaTheCountOfReadingsIsCheckedForOverflow) {
  Rig rig(true);
  rig.State.MeterReadingCount = 2147483647;
  EXPECT_THROW(rig.Meter.ParseChars("1;"), RunTimeError);
}

TEST(ParseChars, TheReadingIsShownAsSentWithItsDecibelsDown) {
  for (const bool roska : {true, false}) {
    Rig rig(roska);
    rig.Meter.ParseChars(roska ? "0150;" : "\r0150 ");
    EXPECT_EQ(rig.Display.Reading, "0150");
    EXPECT_FLOAT_EQ(rig.Display.DownDb, 55.0F);
    EXPECT_NEAR(rig.State.MeterLevel, 1.7783F, 1e-4F);
  }
}

TEST(ParseChars, TarvenEverythingBehindItsNameInThatTextIsIgnored) {
  Rig rig;
  rig.Meter.ParseChars("\rTARVEN 123 \r345 ");
  EXPECT_THAT(rig.Display.Readings, IsEmpty());
  rig.Meter.ParseChars("\r345 ");
  EXPECT_THAT(rig.Display.Readings, ElementsAre("345"));
}

TEST(ParseChars, TarvenNameCutAtEveryByteGivesNoReadingBeforeTheNextCarriageReturn) {
  const std::string text = "\rTARVEN 123 ";
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    Rig rig;
    rig.Meter.ParseChars(text.substr(0, cut));
    rig.Meter.ParseChars(text.substr(cut));
    EXPECT_THAT(rig.Display.Readings, IsEmpty()) << "cut at " << cut;
  }
}

TEST(ParseChars, TarvenDeliberatelyTheBufferStaysBehindAReading) {
  Rig rig;
  rig.Meter.ParseChars("\r345 \n\r67 ");
  EXPECT_THAT(rig.Display.Readings, ElementsAre("345", "67"));
}

TEST(ParseChars, TarvenNameIsHeardOnlyWhileCapturing) {
  Rig rig;
  rig.Meter.ParseChars("TARVEN 123 \r345 ");
  EXPECT_THAT(rig.Display.Readings, ElementsAre("345"));
}

TEST(ParseChars, MoreThan64CharactersAreDropped) {
  for (const bool roska : {true, false}) {
    Rig rig(roska);
    rig.Meter.ParseChars((roska ? "" : "\r") + std::string(5000, '1') + (roska ? ";" : " "));
    EXPECT_THAT(rig.Display.Readings, ElementsAre(std::string(64, '1')));
  }
}

TEST(ParseChars, TheKindOfMeterCountsAtEachCharacter) {
  Rig rig(true);
  rig.Meter.ParseChars("12");
  rig.Settings.Input.ROSKAmeter = false;
  rig.Meter.ParseChars("\r34 ");
  EXPECT_THAT(rig.Display.Readings, ElementsAre("34"));
}

TEST(ExternalMeter, MinusThirtyDbmIsTheMiddleOfTheRangeAfterThreePolls) {
  Rig rig;
  rig.Publish("Y", "-30");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 300.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 30.0F);
  EXPECT_NEAR(rig.State.MeterLevel, 31.62F, 0.01F);
  EXPECT_FLOAT_EQ(rig.Display.Dbm, -30.0F);
  EXPECT_FLOAT_EQ(rig.Display.DownDb, 30.0F);
  EXPECT_EQ(rig.Display.lblStatus, "The external power meter is active");
  EXPECT_EQ(rig.Display.Shape, StatusColour::Green);
}

TEST(ExternalMeter, BelowTheRangeIs0) {
  Rig rig;
  rig.Publish("Y", "-70.5");
  rig.PollThrice();
  EXPECT_EQ(rig.State.MeterAverage, 0.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterLevel, 1.0F);
}

TEST(ExternalMeter, WithoutAReadingItIs1Dbm) {
  Rig rig;
  rig.Store.Put("Active", "Y", "GaugeBridge");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.Display.Dbm, 1.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterAverage, 610.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
}

TEST(ExternalMeter, ValuesGoOnWithOneDecimalOfATenth) {
  Rig rig;
  rig.Publish("Y", "-42.387");
  rig.External.Poll();
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 176.1F);
}

TEST(ExternalMeter, AnythingButYKeepsTheLastLevelAndSaysSo) {
  for (const char* active : {"N", "y", "Yes", "", " Y"}) {
    Rig rig;
    rig.Publish("Y", "-30");
    rig.PollThrice();
    const float level = rig.State.MeterLevel;
    rig.Publish(active, "-10");
    rig.External.Poll();
    EXPECT_EQ(rig.State.MeterLevel, level) << active;
    EXPECT_EQ(rig.State.ValuesReceived, 3U);
    EXPECT_EQ(rig.Display.lblStatus, "The external power meter is not ready.");
    EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  }
}

TEST(ExternalMeter, ThatNeverPublishedIsNotReady) {
  Rig rig;
  rig.External.Poll();
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_THAT(rig.Store.Log, ElementsAre("get GaugeBridge/Settings/Active"));
}

TEST(ExternalMeter, APublishedNumberBeyondAllSenseIsFullScaleAndNoFault) {
  Rig rig;
  rig.Publish("Y", "1e999");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  rig.Publish("Y", "-1e99");
  rig.PollThrice();
  EXPECT_EQ(rig.State.MeterDb, 0.0F);
}

TEST(CalibrateCurrent, TheWholePartIsTheFloor) {
  struct Row {
    float Average;
    const char* Text;
  };
  for (const Row& row : {Row{432.4F, "-168"},
                         {432.5F, "-167"},
                         {600.0F, "0"},
                         {0.0F, "-600"},
                         {-0.6F, "-601"},
                         {700.2F, "100"}}) {
    Rig rig;
    rig.State.MeterAverage = row.Average;
    EXPECT_EQ(CalibrateCurrent(rig.State, rig.Settings, rig.Store), row.Text);
    EXPECT_EQ(rig.Settings.dBCalAdjust0dB, std::stof(row.Text));
    EXPECT_THAT(rig.Store.Log, ElementsAre("save dBCalAdjust0dB=" + std::string(row.Text)));
  }
}

TEST(CalibrateCurrent, TheSameValueIsThen0dBDown) {
  Rig rig;
  rig.Thrice("432");
  CalibrateCurrent(rig.State, rig.Settings, rig.Store);
  rig.Meter.ConvertReading("432");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
}

}  // namespace
}  // namespace lobegraph
