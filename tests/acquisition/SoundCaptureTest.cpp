#include "acquisition/SoundCapture.h"

#include <gmock/gmock.h>

#include <limits>

#include "acquisition/SoundFakes.h"
#include "data/RunTimeError.h"

namespace lobegraph {
namespace {

using test::BlockOf;
using test::FakeDevice;
using test::ScriptedPump;
using test::SleepingClock;

class CaptureForm : public ::testing::Test {
 protected:
  std::string Initialize(std::int32_t rate = 44100, std::int16_t bits = 16, std::int16_t channels = 2,
                         std::int32_t size = 0, const std::string& device = "") {
    std::string error = "left from before";
    form_.Initialize(rate, bits, channels, size, device, error);
    return error;
  }
  void Hear(std::int16_t sample) {
    device_.ring->Write(BlockOf(sample));
    device_.Deliver();
  }

  FakeDevice device_;
  SoundLevelState state_;
  frmDX_Record form_{device_, state_};
};

TEST_F(CaptureForm, TenMillisecondBlocksOf44100HzStereo) {
  EXPECT_EQ(Initialize(), "");
  const CaptureBuffer& buffer = form_.Buffer();
  EXPECT_EQ(buffer.Format.FormatTag, 1);
  EXPECT_EQ(buffer.Format.Channels, 2);
  EXPECT_EQ(buffer.Format.SamplesPerSecond, 44100);
  EXPECT_EQ(buffer.Format.BitsPerSample, 16);
  EXPECT_EQ(buffer.Format.BlockAlign, 4);
  EXPECT_EQ(buffer.Format.AverageBytesPerSecond, 176400);
  EXPECT_EQ(buffer.HalfBytes, 1764);
  EXPECT_EQ(buffer.BufferBytes, 3528);
}

TEST_F(CaptureForm, NoticesStandAfterTheWrapAtTheMiddleAndAtTheStop) {
  Initialize();
  const NotifyPositions& positions = form_.Buffer().Positions;
  EXPECT_EQ(positions[0].Offset, 1);
  EXPECT_EQ(positions[1].Offset, 1764);
  EXPECT_EQ(positions[2].Offset, -1);
  EXPECT_NE(positions[0].EventHandle, positions[1].EventHandle);
  EXPECT_NE(positions[1].EventHandle, positions[2].EventHandle);
  EXPECT_NE(positions[0].EventHandle, positions[2].EventHandle);
}

struct SizeCase {
  std::int32_t Rate;
  std::int16_t Bits, Channels;
  std::int32_t Wish, HalfBytes;
};

TEST_F(CaptureForm, BlockSizesAreWholeSamples) {
  const SizeCase cases[] = {
      {44100, 16, 2, 0, 1764},    {44100, 16, 2, -5, 1764}, {44100, 16, 2, 1000, 1000},
      {44100, 16, 2, 1003, 1000}, {44100, 16, 2, 4, 4},     {8000, 8, 1, 0, 80},
      {22050, 8, 1, 0, 220},      {11025, 16, 2, 0, 440},   {48000, 16, 1, 0, 960},
  };
  for (const SizeCase& c : cases) {
    EXPECT_EQ(Initialize(c.Rate, c.Bits, c.Channels, c.Wish), "");
    EXPECT_EQ(form_.Buffer().HalfBytes, c.HalfBytes) << c.Rate << " " << c.Wish;
    EXPECT_EQ(form_.Buffer().BufferBytes, 2 * c.HalfBytes);
  }
}

TEST_F(CaptureForm, FormatsThatOverflowAreAnErrorTextNotACrash) {
  EXPECT_EQ(Initialize(44100, 16384, 2), "Overflow") << "16 bits hold the product of bits and channels";
  EXPECT_EQ(Initialize(std::numeric_limits<std::int32_t>::max(), 16, 2), "Overflow");
  EXPECT_EQ(Initialize(44100, 16, 2, std::numeric_limits<std::int32_t>::max()), "Overflow");
  EXPECT_EQ(Initialize(44100, 16, 0), "Division by zero");
  EXPECT_EQ(Initialize(44100, 16, 2, 3), RunTimeError(fault::kInvalidProcedureCall).Description());
  EXPECT_EQ(Initialize(), "") << "and the next start works";
}

TEST_F(CaptureForm, AnEmptyIdentifierTakesTheFirstEnumeratedDevice) {
  Initialize();
  EXPECT_EQ(device_.calls, "first open:mic ");
}

TEST_F(CaptureForm, ANamedDeviceIsTakenByItsName) {
  Initialize(44100, 16, 2, 0, "line-in");
  EXPECT_EQ(device_.calls, "open:line-in ");
}

TEST_F(CaptureForm, TheFirstDeviceIsAskedForAtEachStart) {
  Initialize();
  device_.defaultDevice = "usb";
  Initialize();
  EXPECT_EQ(device_.calls, "first open:mic close first open:usb ") << "what was open is released first";
}

TEST_F(CaptureForm, ThePlatformsErrorTextIsHandedBackAndAllIsReleased) {
  device_.firstError = "no server";
  EXPECT_EQ(Initialize(), "no server");
  device_.firstError.clear();
  device_.openError = "source is busy";
  EXPECT_EQ(Initialize(), "source is busy");
  EXPECT_EQ(device_.calls, "first close first open:mic close ");
}

TEST_F(CaptureForm, StartAndStopSayWhetherCaptureIsActive) {
  Initialize();
  EXPECT_FALSE(state_.SoundCaptureActive);
  form_.SoundStart();
  EXPECT_TRUE(state_.SoundCaptureActive);
  form_.SoundStop();
  EXPECT_FALSE(state_.SoundCaptureActive);
  form_.SoundStart();
  form_.UninitializeSound();
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(device_.calls, "first open:mic start stop start close ");
}

TEST_F(CaptureForm, AStartThatFailsLeavesCaptureInactive) {
  Initialize();
  device_.startError = "the source does not run";
  form_.SoundStart();
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(form_.Failure(), "the source does not run");
}

TEST_F(CaptureForm, WithoutABufferStartStopAndReleaseDoNothing) {
  form_.SoundStart();
  form_.SoundStop();
  form_.UninitializeSound();
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(device_.calls, "");
}

TEST_F(CaptureForm, EachEventReadsTheHalfThatIsFull) {
  Initialize();
  const NotifyPositions positions = form_.Buffer().Positions;
  device_.ring->Write(BlockOf(320));
  device_.ring->Write(BlockOf(640));
  form_.DirectXEvent8_DXCallback(positions[1].EventHandle);
  EXPECT_EQ(state_.SoundLevel, 10.0F);
  form_.DirectXEvent8_DXCallback(positions[0].EventHandle);
  EXPECT_EQ(state_.SoundLevel, 20.0F);
  EXPECT_EQ(form_.BlocksAnalysed(), 2U);
}

TEST_F(CaptureForm, TheStopMarkerAndUnknownEventsReadNothing) {
  Initialize();
  const NotifyPositions positions = form_.Buffer().Positions;
  Hear(320);
  device_.ring->Write(BlockOf(640));
  form_.DirectXEvent8_DXCallback(positions[2].EventHandle);
  form_.DirectXEvent8_DXCallback(positions[2].EventHandle + 1);
  EXPECT_EQ(state_.SoundLevel, 10.0F);
  EXPECT_EQ(form_.BlocksAnalysed(), 1U);
}

TEST_F(CaptureForm, ANoticeAfterTheReleaseIsIgnored) {
  Initialize();
  const NotifyPositions positions = form_.Buffer().Positions;
  form_.UninitializeSound();
  form_.DirectXEvent8_DXCallback(positions[0].EventHandle);
  EXPECT_EQ(form_.BlocksAnalysed(), 0U);
}

TEST_F(CaptureForm, ALateNoticeOfAnEarlierCaptureMeansNothingToTheNext) {
  Initialize();
  const NotifyPositions old = form_.Buffer().Positions;
  Initialize();
  form_.DirectXEvent8_DXCallback(old[1].EventHandle);
  EXPECT_EQ(form_.BlocksAnalysed(), 0U);
}

TEST_F(CaptureForm, TheLevelIsKeptBetweenCaptures) {
  Initialize();
  Hear(3200);
  form_.UninitializeSound();
  Initialize();
  EXPECT_EQ(state_.SoundLevel, 100.0F);
}

TEST_F(CaptureForm, ClosingTheFormReleasesTheDevice) {
  {
    frmDX_Record form(device_, state_);
    std::string error;
    form.Initialize(44100, 16, 2, 0, "", error);
  }
  EXPECT_EQ(device_.calls, "first open:mic close ");
}

class Recording : public CaptureForm {
 protected:
  void HearAtYield(int yield, std::int16_t sample) {
    pump_.atYield = [this, yield, sample](int now) {
      if (now == yield) Hear(sample);
    };
  }
  ScriptedPump pump_;
  SleepingClock clock_;
  SoundCardCapture capture_{form_, state_, clock_, pump_};
};

TEST_F(Recording, StartRecordingOpensTheDefaultInputAndLetsItRun) {
  EXPECT_EQ(capture_.StartRecording(), "");
  EXPECT_TRUE(state_.SoundCaptureActive);
  EXPECT_EQ(form_.Buffer().HalfBytes, 1764);
  EXPECT_EQ(device_.calls, "first open:mic start ");
}

TEST_F(Recording, AnErrorTextIsHandedUpAndNothingIsStarted) {
  device_.openError = "no such source";
  EXPECT_EQ(capture_.StartRecording(), "no such source");
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(device_.calls, "first open:mic close ");
  EXPECT_STREQ(kSoundErrorTitle, "DirectSound Error");
}

TEST_F(Recording, StopRecordingStopsThenReleases) {
  capture_.StartRecording();
  capture_.StopRecording();
  EXPECT_EQ(device_.calls, "first open:mic start stop close ");
  EXPECT_FALSE(state_.SoundCaptureActive);
}

TEST_F(Recording, StartReturnsOnlyAfterAFreshBlock) {
  state_.SoundLevel = 777;
  HearAtYield(3, 320);
  EXPECT_TRUE(capture_.StartSoundCapture());
  EXPECT_EQ(pump_.yields, 3);
  EXPECT_EQ(state_.SoundLevel, 10.0F) << "a level left from the last capture must not start a collection";
  EXPECT_EQ(capture_.SoundFailure(), "");
}

TEST_F(Recording, StartingTwiceIsTheSameAsOnce) {
  HearAtYield(1, 320);
  EXPECT_TRUE(capture_.StartSoundCapture());
  EXPECT_TRUE(capture_.StartSoundCapture());
  EXPECT_EQ(device_.calls, "first open:mic start ");
  EXPECT_EQ(pump_.yields, 1);
}

TEST_F(Recording, AStartThatCannotOpenFailsAtOnceWithItsText) {
  device_.firstError = "Connection refused";
  EXPECT_FALSE(capture_.StartSoundCapture());
  EXPECT_EQ(capture_.SoundFailure(), "Connection refused");
  EXPECT_EQ(pump_.yields, 0);
  EXPECT_FALSE(state_.SoundCaptureActive);
}

TEST_F(Recording, AStartThatCannotRunFailsAtOnceWithItsText) {
  device_.startError = "suspended";
  EXPECT_FALSE(capture_.StartSoundCapture());
  EXPECT_EQ(capture_.SoundFailure(), "suspended");
  EXPECT_EQ(device_.calls, "first open:mic start stop close ");
}

TEST_F(Recording, AnInputFromWhichNothingComesIsGivenUpAfterTwoSeconds) {
  EXPECT_FALSE(capture_.StartSoundCapture());
  EXPECT_EQ(clock_.now, 2000);
  EXPECT_EQ(capture_.SoundFailure(), "The sound input is open, but nothing has come from it for 2 seconds.");
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(device_.calls, "first open:mic start stop close ");
}

TEST_F(Recording, TheWaitIsTwoSecondsEvenWhereTheClockWrapsRound) {
  clock_.now = std::numeric_limits<std::int32_t>::max() - 1000;
  EXPECT_FALSE(capture_.StartSoundCapture());
  EXPECT_EQ(clock_.now, std::numeric_limits<std::int32_t>::min() + 999);
}

TEST_F(Recording, AServerThatGoesWhileCaptureStartsEndsTheWait) {
  pump_.atYield = [this](int now) {
    if (now == 2) device_.Fail("Connection terminated");
  };
  EXPECT_FALSE(capture_.StartSoundCapture());
  EXPECT_EQ(pump_.yields, 2);
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated");
}

TEST_F(Recording, ACaptureThatFailsInTheMiddleIsSeenAtTheNextLook) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture();
  device_.Fail("Connection terminated");
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated");
  capture_.StopSoundCapture();
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated") << "kept for the message after the run";
}

TEST_F(Recording, ACaptureThatFallsSilentForTwoSecondsHasFailed) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture();
  EXPECT_EQ(capture_.SoundFailure(), "");
  clock_.Sleep(1999);
  EXPECT_EQ(capture_.SoundFailure(), "");
  clock_.Sleep(1);
  EXPECT_NE(capture_.SoundFailure(), "");
}

TEST_F(Recording, LooksThatAreFarApartDoNotCountAsAFailureWhileBlocksCome) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture();
  for (int look = 0; look < 3; ++look) {
    clock_.Sleep(3333);
    Hear(320);
    EXPECT_EQ(capture_.SoundFailure(), "") << "at 20 minutes a turn the window yields every 3.3 s";
  }
}

TEST_F(Recording, TheNextStartForgetsTheFailureOfTheLast) {
  device_.openError = "busy";
  capture_.StartSoundCapture();
  device_.openError.clear();
  HearAtYield(1, 320);
  EXPECT_TRUE(capture_.StartSoundCapture());
  EXPECT_EQ(capture_.SoundFailure(), "");
}

TEST_F(Recording, TheSourceHasANameForPeople) { EXPECT_EQ(capture_.SoundSourceName(), "Fake microphone"); }

}  // namespace
}  // namespace lobegraph
