// From a meter's value to the level, and the calibration.
#include "acquisition/meters/dBMeter.h"

#include "support/FakeClock.h"
#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

struct Rig {
  MeterState State;
  SettingsValues Settings;
  test::FakeDisplay Display;
  RecordingStore Store;
  FakeClock Time;
  dBMeter Meter{State, Settings, Display, Time};

  explicit Rig(bool roska = false) {
    Settings.Input.InputDeviceIsdBMeter = true;
    Settings.Input.ROSKAmeter = roska;
  }
  float Thrice(const std::string& text) {
    Meter.ConvertReading(text);
    Meter.ConvertReading(text);
    return Meter.ConvertReading(text);
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

TEST(ConvertReading, ThreeValuesFillTheMeanUntilItIsForgotten) {
  Rig rig;
  for (const bool full : {false, false, true, true}) {
    rig.Meter.ConvertReading("300");
    EXPECT_EQ(rig.State.HistoryFull(), full);
  }
  rig.State.Received.Buffer = "12";
  rig.State.Forget();
  EXPECT_FALSE(rig.State.HistoryFull());
  EXPECT_EQ(rig.State.Received.Buffer, "") << "or it would join the next meter's first number";
  rig.Meter.ConvertReading("600");
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 20.0F) << "nothing of the former meter is in the mean";
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

TEST(ParseChars, TheNumberIsShownAsSentWithItsDecibelsDown) {
  for (const bool roska : {true, false}) {
    Rig rig(roska);
    rig.Meter.ParseChars(roska ? "0150;" : "\r0150 ");
    EXPECT_EQ(rig.Display.Reading, "0150");
    EXPECT_FLOAT_EQ(rig.Display.DownDb, 55.0F);
    EXPECT_NEAR(rig.State.MeterLevel, 1.7783F, 1e-4F);
  }
}

TEST(ParseChars, EachNumberIsASignOfLifeAndTheMetersPaceIsLearnt) {
  Rig rig(true);
  EXPECT_EQ(rig.State.Life.SilentAfterMs, 1000U);
  for (int text = 0; text < 5; ++text) {
    rig.Meter.ParseChars("300;300;");
    rig.Time.Advance(100);
    rig.Meter.ParseChars("30");  // the beginning of the next
  }
  EXPECT_EQ(rig.State.Life.Signs, 10U);
  EXPECT_EQ(rig.State.Life.SilentAfterMs, 200U) << "twice the 100 ms after which it is heard again";
}

TEST(ParseChars, NumbersAreTenthsOfADecibel) {
  Rig rig(true);
  rig.Meter.ParseChars("123;");
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 123.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 4.1F);
  rig.Meter.ParseChars("456;");
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 456.0F);
}

TEST(ParseChars, TheKindOfMeterCountsAtEachText) {
  Rig rig(true);
  rig.Meter.ParseChars("12");
  rig.Settings.Input.ROSKAmeter = false;
  rig.Meter.ParseChars("\r34 ");
  EXPECT_EQ(rig.Display.Reading, "34");
}

TEST(ParseChars, TheSoundCardHasNoPortToListenTo) {
  Rig rig;
  rig.Settings.Input.InputDeviceIsdBMeter = false;
  rig.Meter.ParseChars("\r345 ");
  EXPECT_EQ(rig.State.ValuesReceived, 0U);
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
