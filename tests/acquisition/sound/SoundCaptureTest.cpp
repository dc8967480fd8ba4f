#include "acquisition/sound/SoundCapture.h"

#include <gmock/gmock.h>

#include <limits>

#include "acquisition/SoundFixture.h"

namespace lobegraph {
namespace {

using test::CaptureForm;
using test::ScriptedPump;
using test::SleepingClock;
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
  EXPECT_EQ(form_.Buffer().Format.SamplesPerSecond, 44100);
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
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(pump_.yields, 3);
  EXPECT_EQ(state_.SoundLevel, 10.0F) << "a level left from the last capture must not start a collection";
  EXPECT_EQ(capture_.SoundFailure(), "");
}

TEST_F(Recording, StartingTwiceIsTheSameAsOnce) {
  HearAtYield(1, 320);
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(device_.calls, "first open:mic start ");
  EXPECT_EQ(pump_.yields, 1);
}

TEST_F(Recording, ATurnDoesNotTakeOverACaptureThatFollowsMoves) {
  HearAtYield(1, 320);
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFollowed));
  EXPECT_TRUE(form_.Buffer().FollowsMoves);
  HearAtYield(2, 320);
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_FALSE(form_.Buffer().FollowsMoves);
}

TEST_F(Recording, AStartThatCannotOpenFailsAtOnceWithItsText) {
  device_.firstError = "Connection refused";
  EXPECT_FALSE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(capture_.SoundFailure(), "Connection refused");
  EXPECT_EQ(pump_.yields, 0);
  EXPECT_FALSE(state_.SoundCaptureActive);
}

TEST_F(Recording, AStartThatCannotRunFailsAtOnceWithItsText) {
  device_.startError = "suspended";
  EXPECT_FALSE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(capture_.SoundFailure(), "suspended");
  EXPECT_EQ(device_.calls, "first open:mic start stop close ");
}

TEST_F(Recording, AnInputFromWhichNothingComesIsGivenUpAfterTwoSeconds) {
  EXPECT_FALSE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(clock_.now, 2000);
  EXPECT_EQ(capture_.SoundFailure(), "The sound input is open, but nothing has come from it for 2 seconds.");
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(device_.calls, "first open:mic start stop close ");
}

TEST_F(Recording, TheWaitIsTwoSecondsEvenWhereTheClockWrapsRound) {
  clock_.now = std::numeric_limits<std::int32_t>::max() - 1000;
  EXPECT_FALSE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(clock_.now, std::numeric_limits<std::int32_t>::min() + 999);
}

TEST_F(Recording, AServerThatGoesWhileCaptureStartsEndsTheWait) {
  pump_.atYield = [this](int now) {
    if (now == 2) device_.Fail("Connection terminated");
  };
  EXPECT_FALSE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(pump_.yields, 2);
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated");
}

TEST_F(Recording, ACaptureThatFailsInTheMiddleIsSeenAtTheNextLook) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture(SourceMoves::AreFailures);
  device_.Fail("Connection terminated");
  EXPECT_FALSE(state_.SoundCaptureActive);
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated");
  capture_.StopSoundCapture();
  EXPECT_EQ(capture_.SoundFailure(), "Connection terminated") << "kept for the message after the run";
}

TEST_F(Recording, ACaptureThatFallsSilentForTwoSecondsHasFailed) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture(SourceMoves::AreFailures);
  EXPECT_EQ(capture_.SoundFailure(), "");
  for (int look = 0; look < 19; ++look) {
    clock_.Sleep(100);
    EXPECT_EQ(capture_.SoundFailure(), "");
  }
  clock_.Sleep(99);
  EXPECT_EQ(capture_.SoundFailure(), "");
  clock_.Sleep(1);
  EXPECT_NE(capture_.SoundFailure(), "");
}

TEST_F(Recording, AProgramThatWasSuspendedItselfDoesNotBlameTheSource) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture(SourceMoves::AreFailures);
  clock_.Sleep(60000);  // the first look after waking comes before the first block
  EXPECT_EQ(capture_.SoundFailure(), "");
  Hear(320);
  clock_.Sleep(1999);
  EXPECT_EQ(capture_.SoundFailure(), "");
}

TEST_F(Recording, LooksThatAreFarApartDoNotCountAsAFailureWhileBlocksCome) {
  HearAtYield(1, 320);
  capture_.StartSoundCapture(SourceMoves::AreFailures);
  for (int look = 0; look < 3; ++look) {
    clock_.Sleep(3333);
    Hear(320);
    EXPECT_EQ(capture_.SoundFailure(), "") << "at 20 minutes a turn the window yields every 3.3 s";
  }
}

TEST_F(Recording, TheNextStartForgetsTheFailureOfTheLast) {
  device_.openError = "busy";
  capture_.StartSoundCapture(SourceMoves::AreFailures);
  device_.openError.clear();
  HearAtYield(1, 320);
  EXPECT_TRUE(capture_.StartSoundCapture(SourceMoves::AreFailures));
  EXPECT_EQ(capture_.SoundFailure(), "");
}

TEST_F(Recording, TheSourceHasANameForPeople) { EXPECT_EQ(capture_.SoundSourceName(), "Fake microphone"); }

}  // namespace
}  // namespace lobegraph
