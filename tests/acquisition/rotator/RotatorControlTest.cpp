#include "acquisition/rotator/RotatorControl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquisition/rotator/RotatorRig.h"
#include "acquisition/rotator/RotatorWords.h"

namespace lobegraph {
namespace {

using test::RotatorRig;
using testing::HasSubstr;
using Kind = RotatorOrder::Kind;
using Phase = RotatorState::Phase;

TEST(RotatorControl, BeforeItIsConnectedNothingMoves) {
  RotatorRig rig;
  EXPECT_EQ(rig.Control.State().Is, Phase::Off);
  EXPECT_EQ(rig.Control.State().Words, "Not connected.");
  EXPECT_EQ(rig.Control.Turn(TurnSense::Left), "No rotator is connected.");
  rig.Control.Stop();
  rig.Control.Disconnect();
  EXPECT_EQ(rig.Rotator.Started, 0);
  EXPECT_EQ(rig.Rotator.Left, 0);
}

TEST(RotatorControl, ConnectedItTellsTheBearingFiveTimesASecond) {
  RotatorRig rig;
  rig.Rotator.Deg = 370;
  rig.Connect();
  EXPECT_EQ(rig.Rotator.Orders.front(), (RotatorOrder{Kind::Open, 1, {1, "", 0}}));
  EXPECT_EQ(rig.Control.State().Is, Phase::Stands);
  EXPECT_EQ(rig.Control.State().Words, "Stands.");
  EXPECT_EQ(rig.Control.State().BearingDeg, 10);
  rig.Control.TakePositions();
  rig.Pass(2);
  const auto positions = rig.Control.TakePositions();
  EXPECT_NEAR(static_cast<double>(positions.size()), 10, 1);
  EXPECT_EQ(positions.back().Deg, 370);
  rig.Rotator.TurnByHand(6);
  rig.Pass(1);
  EXPECT_EQ(rig.Control.State().Is, Phase::Moves);
  EXPECT_EQ(rig.Control.State().Words, "Moves.");
}

TEST(RotatorControl, TheProcessIsNeverWithoutASignOfLife) {
  RotatorRig rig;
  rig.Connect();
  rig.Pass(20);
  EXPECT_LE(rig.Rotator.LongestSilenceS, 0.4);
}

TEST(RotatorControl, WithoutConsentNothingIsOrdered) {
  RotatorRig rig;
  rig.Connect();
  const char* const refusal = "The antenna may not be driven by this program.";
  EXPECT_EQ(rig.Control.GoTo(90), refusal);
  EXPECT_EQ(rig.Control.Turn(TurnSense::Right), refusal);
  EXPECT_EQ(rig.Control.Park(), refusal);
  EXPECT_EQ(
      rig.Rotator.CountOf(Kind::GoTo) + rig.Rotator.CountOf(Kind::Right) + rig.Rotator.CountOf(Kind::Park),
      0);
  rig.Control.Stop();
  EXPECT_EQ(rig.Rotator.CountOf(Kind::Stop), 1) << "a stop needs no consent";
}

TEST(DriveConsent, IsAskedForOnceASession) {
  DriveConsent consent;
  EXPECT_FALSE(consent.MustAsk());
  consent.Tick(true);
  EXPECT_TRUE(consent.MustAsk());
  EXPECT_FALSE(consent.Granted());
  consent.Answer(true);
  EXPECT_TRUE(consent.Granted());
  consent.Tick(false);
  EXPECT_FALSE(consent.Granted());
  consent.Tick(true);
  EXPECT_FALSE(consent.MustAsk());
  EXPECT_TRUE(consent.Granted());
  EXPECT_STREQ(DriveConsent::kQuestion, "The antenna will turn. Is its way free?");
}

TEST(DriveConsent, NoTakesTheTickAway) {
  DriveConsent consent;
  consent.Tick(true);
  consent.Answer(false);
  EXPECT_FALSE(consent.Ticked());
  EXPECT_FALSE(consent.Granted());
  consent.Tick(true);
  EXPECT_TRUE(consent.MustAsk());
}

TEST(RotatorControl, GoesWhereItIsTold) {
  RotatorRig rig;
  rig.ConnectToDrive();
  EXPECT_EQ(rig.Control.GoTo(90), "");
  rig.Pass(1);
  EXPECT_EQ(rig.Control.State().Is, Phase::Driven);
  EXPECT_EQ(rig.Control.State().Words, "Goes to 90 degrees.");
  rig.Pass(16);
  EXPECT_EQ(rig.Control.State().Words, "Stands.");
  EXPECT_NEAR(rig.Rotator.Deg, 90, 0.1);
}

TEST(RotatorControl, TurnsParksAndStops) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Rotator.ParkDeg = -90;
  EXPECT_EQ(rig.Control.Turn(TurnSense::Left), "");
  rig.Pass(3);
  EXPECT_EQ(rig.Control.State().Words, "Turns left.");
  EXPECT_LT(rig.Rotator.Deg, -15);
  rig.Control.Stop();
  rig.Pass(0.5);
  EXPECT_EQ(rig.Control.State().Words, "Stops.");
  rig.Pass(4);
  EXPECT_EQ(rig.Control.State().Words, "Stands.");
  EXPECT_EQ(rig.Control.Turn(TurnSense::Right), "");
  rig.Pass(1);
  EXPECT_EQ(rig.Control.State().Words, "Turns right.");
  EXPECT_EQ(rig.Control.Park(), "");
  rig.Pass(1);
  EXPECT_EQ(rig.Control.State().Words, "Goes to its parking place.");
  rig.Pass(30);
  EXPECT_NEAR(rig.Rotator.Deg, -90, 0.1);
  EXPECT_EQ(rig.Control.Trouble(), "");
}

TEST(RotatorControl, ABearingIsCountedIntoTheRotatorsRangeTheNearestWay) {
  RotatorRig rig;
  rig.Rotator.Deg = 400;
  rig.ConnectToDrive();
  rig.Control.GoTo(90);
  EXPECT_EQ(rig.Rotator.Orders.back().Deg, 450);
  rig.Control.GoToExactly(90);
  EXPECT_EQ(rig.Rotator.Orders.back().Deg, 90);
  EXPECT_EQ(rig.Control.GoToExactly(451), SentenceOf(RotatorFault::OutOfRange));
}

TEST(RotatorControl, ABearingThatTheRotatorCannotReachIsRefused) {
  RotatorRig rig;
  rig.Rotator.Can.LowestDeg = 0;
  rig.Rotator.Can.HighestDeg = 180;
  rig.ConnectToDrive();
  EXPECT_EQ(rig.Control.GoTo(270), SentenceOf(RotatorFault::OutOfRange));
  EXPECT_EQ(rig.Control.GoTo(-270), "");
  EXPECT_EQ(rig.Rotator.Orders.back().Deg, 90);
}

TEST(RotatorControl, WhatARotatorCannotDoIsNotOrdered) {
  RotatorRig rig;
  rig.Rotator.Can = {true, true, false, true, false, 0, 360};
  rig.ConnectToDrive();
  EXPECT_EQ(rig.Control.Turn(TurnSense::Left), SentenceOf(RotatorFault::CannotDoThat));
  EXPECT_EQ(rig.Control.Park(), SentenceOf(RotatorFault::CannotDoThat));
  RotatorRig unstoppable;
  unstoppable.Rotator.Can.Stop = false;
  unstoppable.ConnectToDrive();
  EXPECT_THAT(unstoppable.Control.Turn(TurnSense::Left), HasSubstr("cannot be stopped"));
}

TEST(RotatorControl, AnAntennaThatSticksIsStoppedAndSaidSo) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Rotator.ObeysMoves = false;
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(6);
  EXPECT_EQ(rig.Rotator.CountOf(Kind::Stop), 1);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("has not moved for 5 seconds"));
  EXPECT_TRUE(rig.Control.State().Trouble);
  rig.Rotator.ObeysMoves = true;
  EXPECT_EQ(rig.Control.Turn(TurnSense::Right), "") << "it may be tried again";
  EXPECT_EQ(rig.Control.Trouble(), "");
}

TEST(RotatorControl, LeftThatIsRightIsStoppedAndSaidSo) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Rotator.Reversed = true;
  rig.Control.Turn(TurnSense::Left);
  rig.Pass(3);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("left and right are exchanged"));
}

TEST(RotatorControl, AtItsLimitItIsStopped) {
  RotatorRig rig;
  rig.Rotator.Deg = 430;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(10);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_LT(rig.Rotator.Deg, 457);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("left the rotator's range"));
}

TEST(RotatorControl, AStopThatIsNotObeyedSendsTheUserToTheControlBox) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Rotator.ObeysStops = false;
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Control.Stop();
  rig.Pass(6);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("stop it at the control box"));
}

TEST(RotatorControl, PositionsThatCeaseForThreeSecondsStopTheAntenna) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Rotator.PositionFault = RotatorFault::NoAnswer;
  rig.Pass(2.5);
  EXPECT_TRUE(rig.Rotator.Moves());
  rig.Pass(1);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("has not answered for 3 seconds"));
}

TEST(RotatorControl, AShortBreakOfTheLineIsMendedAndTheTurnGoesOn) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Rotator.PositionFault = RotatorFault::NobodyThere;
  rig.Rotator.OpenFault = RotatorFault::NobodyThere;
  rig.Pass(1.9);
  EXPECT_FALSE(rig.Control.Open());
  rig.Rotator.PositionFault.reset();
  rig.Rotator.OpenFault.reset();
  rig.Pass(3);
  EXPECT_TRUE(rig.Control.Open());
  EXPECT_TRUE(rig.Rotator.Moves());
  EXPECT_EQ(rig.Control.State().Words, "Turns right.");
}

TEST(RotatorControl, ALongBreakOfTheLineOwesAStopThatIsSentWhenItIsBack) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Rotator.PositionFault = RotatorFault::NobodyThere;
  rig.Rotator.OpenFault = RotatorFault::NobodyThere;
  rig.Pass(8);
  EXPECT_TRUE(rig.Rotator.Moves());
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("stop it at the control box"));
  EXPECT_THAT(rig.Control.Turn(TurnSense::Left), HasSubstr("cannot be reached"));
  rig.Rotator.PositionFault.reset();
  rig.Rotator.OpenFault.reset();
  rig.Pass(2);
  EXPECT_FALSE(rig.Rotator.Moves());
  rig.Pass(6);
  EXPECT_EQ(rig.Control.State().Is, Phase::Stands);
}

TEST(RotatorControl, AProcessThatHangsIsReplacedAndTheAntennaStoppedFirst) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Rotator.WaitsS = 0;  // a call that does not return
  rig.Pass(5);
  EXPECT_EQ(rig.Rotator.Killed, 1);
  EXPECT_EQ(rig.Rotator.Started, 2);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_TRUE(rig.Control.Open());
  EXPECT_TRUE(rig.Control.State().Trouble);
}

TEST(RotatorControl, AProcessThatSaysNothingAtAllIsReplacedToo) {
  RotatorRig rig;
  rig.Connect();
  rig.Rotator.Hangs = true;
  rig.Pass(4);
  EXPECT_EQ(rig.Rotator.Killed, 1);
  EXPECT_EQ(rig.Rotator.Started, 2);
  rig.Pass(1);
  EXPECT_EQ(rig.Control.State().Words, "Stands.");
}

TEST(RotatorControl, AProcessThatDiesIsReplacedAndTheAntennaStopped) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(2);
  rig.Rotator.Die();
  rig.Pass(1.2);
  EXPECT_EQ(rig.Rotator.Started, 2);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("connection to the rotator broke"));
}

TEST(RotatorControl, AProcessThatCannotBeStartedIsTriedAgain) {
  RotatorRig rig;
  rig.Rotator.Starts = false;
  rig.Connect();
  EXPECT_EQ(rig.Control.State().Words, SentenceOf(RotatorFault::Inside));
  EXPECT_TRUE(rig.Control.State().Trouble);
  rig.Rotator.Starts = true;
  rig.Pass(2);
  EXPECT_EQ(rig.Control.State().Words, "Stands.");
}

TEST(RotatorControl, ARotatorThatCannotBeOpenedIsTriedAgain) {
  RotatorRig rig;
  rig.Rotator.OpenFault = RotatorFault::NoRight;
  rig.Connect();
  EXPECT_EQ(rig.Control.State().Words, SentenceOf(RotatorFault::NoRight));
  rig.Rotator.OpenFault.reset();
  rig.Pass(2);
  EXPECT_TRUE(rig.Control.Open());
  EXPECT_EQ(rig.Rotator.Started, 1);
}

TEST(RotatorControl, OpeningThatLastsIsGivenUpWithTheProcess) {
  RotatorRig rig;
  rig.Rotator.OpenFault = RotatorFault::NobodyThere;
  rig.Connect();
  rig.Rotator.WaitsS = 0;  // it does not answer to the next one
  rig.Pass(10);
  EXPECT_EQ(rig.Rotator.Killed, 1);
}

TEST(RotatorControl, AnOrderThatIsRefusedIsToldAndAStopIsSent) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Rotator.MoveFault = RotatorFault::Refused;
  EXPECT_EQ(rig.Control.GoTo(90), "");
  rig.Pass(0.5);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr(SentenceOf(RotatorFault::Refused)));
  EXPECT_EQ(rig.Rotator.CountOf(Kind::Stop), 1);
}

TEST(RotatorControl, AStopThatFailsIsSentAgainUntilItIsCarriedOut) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(1);
  rig.Rotator.StopFault = RotatorFault::NoAnswer;
  rig.Control.Stop();
  rig.Pass(4);
  EXPECT_GT(rig.Rotator.CountOf(Kind::Stop), 4);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("stop it at the control box"));
  EXPECT_EQ(rig.Control.Turn(TurnSense::Right), "The antenna is being stopped.");
  rig.Rotator.StopFault.reset();
  rig.Pass(1);
  EXPECT_FALSE(rig.Rotator.Moves());
}

TEST(RotatorControl, LeavingClosesTheLineAndTheProcessStopsTheAntenna) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(1);
  rig.Control.Disconnect();
  EXPECT_EQ(rig.Rotator.Left, 1);
  EXPECT_FALSE(rig.Rotator.Moves());
  EXPECT_EQ(rig.Control.State().Is, Phase::Off);
}

TEST(RotatorControl, LeavingAProcessThatHangsHasAnotherOneStopTheAntenna) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(1);
  rig.Rotator.WaitsS = 0;
  rig.Pass(1.5);
  rig.Control.Disconnect();
  EXPECT_EQ(rig.Rotator.LeftStopping, 1);
}

TEST(RotatorControl, LeavingARotatorThatWasNeverDrivenStopsNothing) {
  RotatorRig rig;
  rig.Connect();
  rig.Rotator.WaitsS = 0;
  rig.Pass(1.5);
  rig.Control.Disconnect();
  EXPECT_EQ(rig.Rotator.LeftStopping, 0);
  EXPECT_EQ(rig.Rotator.Left, 1);
}

TEST(RotatorControl, WhatTheProcessStoppedByItselfIsTold) {
  RotatorRig rig;
  rig.ConnectToDrive();
  rig.Control.Turn(TurnSense::Right);
  rig.Pass(1);
  rig.Rotator.StopItself();
  rig.Pass(0.2);
  EXPECT_THAT(rig.Control.State().Words, HasSubstr("did not answer for a second"));
  EXPECT_FALSE(rig.Control.Driving());
}

TEST(RotatorControl, PositionsOfTheFutureOrThePastAreNone) {
  RotatorRig rig;
  rig.Connect();
  rig.Control.TakePositions();
  rig.Rotator.Tell(RotatorPosition{rig.Rotator.NowS + 5, 77});
  rig.Rotator.Tell(RotatorPosition{rig.Rotator.NowS, 12});
  rig.Rotator.Tell(RotatorPosition{rig.Rotator.NowS - 1, 78});
  rig.Control.Poll(rig.Rotator.NowS);
  const auto positions = rig.Control.TakePositions();
  ASSERT_EQ(positions.size(), 1U);
  EXPECT_EQ(positions[0].Deg, 12);
}

TEST(RotatorControl, PositionsThatGoBackInTimeAreNoneHoweverTheyCome) {
  RotatorRig rig;
  rig.Connect();
  rig.Control.TakePositions();
  const double now = rig.Rotator.NowS;
  for (const double stamp : {now, now - 1, now + 0.1}) {
    rig.Rotator.Tell(RotatorPosition{stamp, 12});
    rig.Control.Poll(now);
  }
  EXPECT_EQ(rig.Control.TakePositions().size(), 2U);
}

TEST(RotatorControl, WhatNobodyTakesIsNotKeptForEver) {
  RotatorRig rig;
  rig.Connect();
  rig.Pass(1800);
  EXPECT_LE(rig.Control.TakePositions().size(), 4096U);
}

struct Range {
  double Deg, Lowest, Highest, Near;
  std::optional<double> Result;
};

TEST(RotatorWords, TheNearestBearingInTheRotatorsCount) {
  for (const Range& row :
       {Range{90, 0, 360, 0, 90}, Range{0, 0, 360, 350, 360}, Range{0, 0, 360, 10, 0},
        Range{360, 0, 360, 10, 0}, Range{90, -180, 450, 400, 450}, Range{90, -180, 450, 200, 90},
        Range{200, -180, 450, -100, -160}, Range{-10, 0, 450, 100, 350}, Range{200, 0, 180, 90, std::nullopt},
        Range{10, 500, 700, 0, std::nullopt}, Range{200, 500, 700, 0, 560}}) {
    const RotatorAbilities can{true, true, true, true, true, row.Lowest, row.Highest};
    EXPECT_EQ(InRange(row.Deg, can, row.Near), row.Result) << row.Deg << " in " << row.Lowest;
  }
}

TEST(RotatorWords, EachAlarmSaysThatItWasStoppedOrWhatToDo) {
  for (const auto alarm :
       {DriveAlarm::DoesNotMove, DriveAlarm::MovesWrongWay, DriveAlarm::LeavesLimits, DriveAlarm::NoAnswers})
    EXPECT_THAT(SentenceOf(alarm), HasSubstr("The antenna was stopped: "));
  EXPECT_THAT(SentenceOf(DriveAlarm::DoesNotStop), HasSubstr("stop it at the control box"));
}

}  // namespace
}  // namespace lobegraph
