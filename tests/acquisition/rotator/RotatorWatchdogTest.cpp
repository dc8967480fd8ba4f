#include "acquisition/rotator/RotatorWatchdog.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace lobegraph {
namespace {

using Kind = DriveOrder::Kind;

constexpr RotatorAbilities kOverlap{true, true, true, true, true, -180, 450};
constexpr RotatorAbilities kOneTurn{true, true, true, true, true, 0, 360};

/// A watchdog that sees a bearing five times a second.
struct Rig {
  RotatorWatchdog Dog;
  double NowS = 50;

  void Begin(const DriveOrder& order, double at, const RotatorAbilities& can = kOverlap) {
    Dog.Begin(order, can, at, NowS);
    begunS_ = NowS;
  }
  void Stop() {
    Dog.Stop(NowS);
    begunS_ = NowS;
  }
  /// The first alarm within that time, or none.
  std::optional<DriveAlarm> Watch(double seconds, const std::function<double(double)>& degAfter) {
    const double end = NowS + seconds;
    while (NowS < end - 1e-9) {
      NowS += 0.2;
      Dog.Heard({NowS, degAfter(NowS - begunS_)}, NowS);
      if (const auto alarm = Dog.Check(NowS)) return alarm;
    }
    return std::nullopt;
  }
  double Elapsed() const { return NowS - begunS_; }

 private:
  double begunS_ = 50;
};

double At(double deg, double degPerS, double t) { return deg + degPerS * t; }

TEST(RotatorWatchdog, AnAntennaThatDoesAsItIsToldRaisesNoAlarm) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  EXPECT_EQ(rig.Watch(60, [](double t) { return At(0, 6, t); }), std::nullopt);
  EXPECT_TRUE(rig.Dog.Driving());
  rig.Begin({Kind::Left}, 360);
  EXPECT_EQ(rig.Watch(60, [](double t) { return At(360, -6, t); }), std::nullopt);
}

TEST(RotatorWatchdog, ABearingThatHasNotMovedForFiveSecondsAfterTheOrder) {
  Rig rig;
  rig.Begin({Kind::Right}, 90);
  EXPECT_EQ(rig.Watch(20, [](double) { return 90.0; }), DriveAlarm::DoesNotMove);
  EXPECT_NEAR(rig.Elapsed(), 5.1, 0.11);
  EXPECT_FALSE(rig.Dog.Driving());
}

TEST(RotatorWatchdog, AnAntennaThatSticksInTheMiddle) {
  Rig rig;
  rig.Begin({Kind::GoTo, 200}, 0);
  EXPECT_EQ(rig.Watch(60, [](double t) { return std::min(At(0, 6, t), 120.0); }), DriveAlarm::DoesNotMove);
  EXPECT_NEAR(rig.Elapsed(), 25, 0.5);
}

TEST(RotatorWatchdog, AnUnsteadyLastDigitIsNoMotion) {
  Rig rig;
  rig.Begin({Kind::Right}, 45);
  bool other = false;
  EXPECT_EQ(rig.Watch(20, [&](double) { return (other = !other) ? 45.0 : 46.0; }), DriveAlarm::DoesNotMove);
}

TEST(RotatorWatchdog, ASlowRotatorWithCoarseAnswersIsGivenTime) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  // Half a degree a second told in steps of 2 degrees: a change every 4 seconds.
  EXPECT_EQ(rig.Watch(120, [](double t) { return 2 * std::floor(At(0, 0.5, t) / 2); }), std::nullopt);
}

TEST(RotatorWatchdog, TheOtherWayThanTold) {
  Rig rig;
  rig.Begin({Kind::Right}, 100);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(100, -6, t); }), DriveAlarm::MovesWrongWay);
  EXPECT_LT(rig.Elapsed(), 3);
  rig.Begin({Kind::Left}, 100);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(100, 6, t); }), DriveAlarm::MovesWrongWay);
  rig.Begin({Kind::GoTo, 190}, 100);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(100, -6, t); }), DriveAlarm::MovesWrongWay);
}

TEST(RotatorWatchdog, TheOtherWayIsSeenOverNorthToo) {
  Rig rig;
  rig.Begin({Kind::Right}, 2, kOneTurn);
  EXPECT_EQ(rig.Watch(20, [](double t) { return std::fmod(At(362, -6, t), 360); }),
            DriveAlarm::MovesWrongWay);
  rig.Begin({Kind::Right}, 350, kOneTurn);
  EXPECT_EQ(rig.Watch(20, [](double t) { return std::fmod(At(350, 6, t), 360); }), std::nullopt);
}

TEST(RotatorWatchdog, AnAntennaThatStillCoastsFromTheOrderBeforeMayTurnRound) {
  Rig rig;
  rig.Begin({Kind::Right}, 100);
  EXPECT_EQ(rig.Watch(20, [](double t) { return t < 1.2 ? At(100, -6, t) : At(92.8, 6, t - 1.2); }),
            std::nullopt);
}

TEST(RotatorWatchdog, AMastWithoutAStopAtNorthMayGoTheShortWay) {
  Rig rig;
  rig.Begin({Kind::GoTo, 10}, 350, kOneTurn);
  EXPECT_EQ(rig.Watch(20, [](double t) { return std::fmod(At(350, 6, std::min(t, 20.0 / 6)), 360); }),
            std::nullopt);
  EXPECT_FALSE(rig.Dog.Driving()) << "it has arrived";
}

TEST(RotatorWatchdog, LeavingTheLimits) {
  Rig rig;
  rig.Begin({Kind::Right}, 440);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(440, 6, t); }), DriveAlarm::LeavesLimits);
  EXPECT_NEAR(At(440, 6, rig.Elapsed()), 456, 1.3);
  rig.Begin({Kind::Left}, -170);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(-170, -6, t); }), DriveAlarm::LeavesLimits);
}

TEST(RotatorWatchdog, ARotatorThatCountsOtherwiseThanItsLimitsIsNotHeldToThem) {
  constexpr RotatorAbilities kHalves{true, true, true, true, true, -180, 180};
  Rig rig;
  rig.Begin({Kind::Right}, 200, kHalves);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(200, 6, t); }), std::nullopt);
}

TEST(RotatorWatchdog, AnswersThatCeaseForThreeSeconds) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  ASSERT_EQ(rig.Watch(4, [](double t) { return At(0, 6, t); }), std::nullopt);
  EXPECT_EQ(rig.Dog.Check(rig.NowS + 2.9), std::nullopt);
  EXPECT_EQ(rig.Dog.Check(rig.NowS + 3.1), DriveAlarm::NoAnswers);
  EXPECT_EQ(rig.Dog.Check(rig.NowS + 9), std::nullopt) << "each alarm once";
}

struct Arrival {
  const char* What;
  double From, To, Stands;
  bool Arrives;
};

TEST(RotatorWatchdog, GoingSomewhereEndsThere) {
  for (const auto& [what, from, to, stands, arrives] :
       {Arrival{"exactly", 0, 90, 90, true}, Arrival{"a coarse rotator three degrees short", 0, 90, 87, true},
        Arrival{"ten degrees short", 0, 90, 80, false}, Arrival{"a whole turn", 0, 360, 360, true},
        Arrival{"into the overlap", 300, 450, 450, true}, Arrival{"it is there already", 90, 90, 90, true}}) {
    Rig rig;
    rig.Begin({Kind::GoTo, to}, from);
    const auto alarm =
        rig.Watch(90, [&, f = from, s = stands](double t) { return std::min(At(f, 6, t), s); });
    EXPECT_EQ(alarm == std::nullopt, arrives) << what;
    EXPECT_FALSE(rig.Dog.Driving()) << what;
  }
}

TEST(RotatorWatchdog, AWholeTurnHasNotArrivedBeforeItHasBegun) {
  Rig rig;
  rig.Begin({Kind::GoTo, 360}, 0);
  EXPECT_EQ(rig.Watch(4, [](double) { return 0.0; }), std::nullopt);
  EXPECT_TRUE(rig.Dog.Driving());
}

TEST(RotatorWatchdog, ARotatorThatStandsAt0WhenItIsSentTo360IsThere) {
  Rig rig;
  rig.Begin({Kind::GoTo, 360}, 0, kOneTurn);
  EXPECT_EQ(rig.Watch(20, [](double) { return 0.0; }), std::nullopt);
  EXPECT_FALSE(rig.Dog.Driving());
}

TEST(RotatorWatchdog, ParkingEndsWhenItStandsAgain) {
  Rig rig;
  rig.Begin({Kind::Park}, 90);
  EXPECT_EQ(rig.Watch(12, [](double t) { return std::max(At(90, -9, t), 0.0); }), std::nullopt);
  EXPECT_FALSE(rig.Dog.Driving());
  rig.Begin({Kind::Park}, 0);
  EXPECT_EQ(rig.Watch(4, [](double) { return 0.0; }), std::nullopt);
  EXPECT_TRUE(rig.Dog.Driving()) << "it may be slow to begin";
  EXPECT_EQ(rig.Watch(10, [](double) { return 0.0; }), std::nullopt) << "it was parked already";
  EXPECT_FALSE(rig.Dog.Driving());
}

TEST(RotatorWatchdog, AfterAStopItMayCoastThenStands) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  ASSERT_EQ(rig.Watch(4, [](double t) { return At(0, 6, t); }), std::nullopt);
  rig.Stop();
  EXPECT_TRUE(rig.Dog.Stopping());
  EXPECT_EQ(rig.Watch(1, [](double t) { return At(24, 6, std::min(t, 2.0)); }), std::nullopt);
  EXPECT_TRUE(rig.Dog.Stopping());
  EXPECT_EQ(rig.Watch(5, [](double t) { return At(24, 6, std::min(t, 2.0)); }), std::nullopt);
  EXPECT_FALSE(rig.Dog.Stopping());
}

TEST(RotatorWatchdog, AnAntennaThatDoesNotStopIsToldOf) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  ASSERT_EQ(rig.Watch(4, [](double t) { return At(0, 6, t); }), std::nullopt);
  rig.Stop();
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(24, 6, t); }), DriveAlarm::DoesNotStop);
  EXPECT_NEAR(rig.Elapsed(), 5.1, 0.11);
}

TEST(RotatorWatchdog, WithoutAnswersAStopIsNotTakenForStanding) {
  Rig rig;
  rig.Begin({Kind::Right}, 0);
  ASSERT_EQ(rig.Watch(4, [](double t) { return At(0, 6, t); }), std::nullopt);
  rig.Stop();
  EXPECT_EQ(rig.Dog.Check(rig.NowS + 30), std::nullopt);
  EXPECT_TRUE(rig.Dog.Stopping());
}

TEST(RotatorWatchdog, AnOrderBeforeTheFirstPositionIsJudgedFromThatOn) {
  Rig rig;
  rig.Dog.Begin({Kind::Right}, kOverlap, std::nullopt, rig.NowS);
  EXPECT_EQ(rig.Watch(20, [](double t) { return At(300, 6, t); }), std::nullopt);
}

}  // namespace
}  // namespace lobegraph
