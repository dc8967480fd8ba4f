#include "acquisition/sound/frmDX_Record.h"

#include <gmock/gmock.h>

#include <limits>

#include "acquisition/SoundFixture.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

using test::BlockOf;
using test::CaptureForm;

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
      {8000, 8, 1, 1, 1},         {44100, 24, 2, 0, 2646},
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

}  // namespace
}  // namespace lobegraph
