#include "bench/rotator/Daemon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bench/rotator/HeardAt.h"

namespace lobegraph {
namespace {

using testing::HasSubstr;

constexpr double kStart = 50;

struct Rig {
  explicit Rig(const DaemonSettings& answers = {},
               MotorSettings range = {.LowestDeg = -180, .HighestDeg = 450})
      : Mast(range, kStart), Answers(Mast, range, answers) {}
  std::string Ask(std::string_view line, double afterS = 0) {
    return Answers.Answer(line, kStart + afterS).value_or("nothing");
  }
  Motor Mast;
  Daemon Answers;
};

TEST(Daemon, TellsThePosition) {
  Rig rig;
  EXPECT_EQ(rig.Ask("p"), "0.00\n0.00\n");
  EXPECT_EQ(rig.Ask("\\get_pos"), "0.00\n0.00\n");
}

TEST(Daemon, ObeysEachCommandByBothItsNames) {
  for (const char* command : {"P 90 0", "P 90.000000 0.000000", "\\set_pos 90 0"}) {
    Rig rig;
    EXPECT_EQ(rig.Ask(command), "RPRT 0\n");
    EXPECT_EQ(rig.Ask("p", 30), "90.00\n0.00\n") << command;
  }
  for (const char* command : {"M 16 -1", "\\move 16 100"}) {
    Rig rig;
    EXPECT_EQ(rig.Ask(command), "RPRT 0\n");
    EXPECT_EQ(rig.Ask("S", 10), "RPRT 0\n");
    EXPECT_EQ(rig.Ask("p", 30), "60.00\n0.00\n") << command;
  }
  Rig rig;
  rig.Ask("M 8 -1");
  EXPECT_EQ(rig.Ask("\\stop", 10), "RPRT 0\n");
  EXPECT_EQ(rig.Ask("p", 30), "-60.00\n0.00\n");
  EXPECT_EQ(rig.Ask("K", 30), "RPRT 0\n");
  EXPECT_EQ(rig.Ask("p", 60), "0.00\n0.00\n");
  EXPECT_EQ(rig.Ask("\\park", 60), "RPRT 0\n");
}

TEST(Daemon, RefusesWhatItCannotDo) {
  Rig rig;
  for (const char* line : {"P", "P x 0", "P 451 0", "P -181 0", "P nan 0", "M", "M 2 1", "M up 1"})
    EXPECT_EQ(rig.Ask(line), "RPRT -1\n") << line;
  for (const char* line : {"zz", "\\fly", " p"}) EXPECT_EQ(rig.Ask(line), "RPRT -4\n") << line;
  EXPECT_EQ(rig.Ask(""), "nothing");
  EXPECT_EQ(rig.Ask("p", 30), "0.00\n0.00\n");
}

TEST(Daemon, TellsItsRangeAsHamlibAsksForIt) {
  Rig rig;
  EXPECT_THAT(rig.Ask("\\dump_state"), HasSubstr("1\n1\nmin_az=-180.000000\nmax_az=450.000000\n"));
  EXPECT_TRUE(rig.Ask("\\dump_state").ends_with("done\n"));
  EXPECT_EQ(rig.Ask("_"), "lobegraph-bench\n");
  EXPECT_TRUE(Daemon::EndsWith("q"));
  EXPECT_TRUE(Daemon::EndsWith("\\quit"));
  EXPECT_FALSE(Daemon::EndsWith("p"));
}

TEST(Daemon, TellsInStepsOfItsResolution) {
  for (const auto& [resolution, told] :
       {std::pair{0.1, "6.10\n0.00\n"}, {1.0, "6.00\n0.00\n"}, {4.0, "8.00\n0.00\n"}}) {
    Rig rig({.ResolutionDeg = resolution});
    rig.Ask("P 6.1 0");
    EXPECT_EQ(rig.Ask("p", 10), told);
  }
}

TEST(Daemon, JumpsAtABearing) {
  Rig rig({.JumpAtDeg = 30});
  rig.Ask("M 16 -1");
  EXPECT_EQ(rig.Ask("p", 4), "23.00\n0.00\n");
  EXPECT_EQ(rig.Ask("p", 6), "75.00\n0.00\n");
}

TEST(Daemon, LosesAnswersButNoCommands) {
  Rig all({.LostShare = 1});
  EXPECT_EQ(all.Ask("P 90 0"), "nothing");
  EXPECT_NEAR(all.Mast.DegAt(kStart + 30), 90, 0.01);
  Rig some({.LostShare = 0.3});
  int lost = 0;
  for (int i = 0; i < 1000; ++i) lost += some.Ask("p") == "nothing" ? 1 : 0;
  EXPECT_NEAR(lost, 300, 60);
}

TEST(HeardAt, FollowsTheServersGuessesSlowlyAndAStandstillAtOnce) {
  HeardAt heard;
  heard.Sync(0, 100);
  EXPECT_DOUBLE_EQ(heard.MonotonicS(0), 100);
  for (int i = 1; i <= 100; ++i) heard.Sync(i * 0.01, 100 + i * 0.01 + (i % 2 == 0 ? 0.02 : -0.02));
  EXPECT_NEAR(heard.MonotonicS(1), 101, 0.002);
  heard.Sync(1, 105);
  EXPECT_DOUBLE_EQ(heard.MonotonicS(1), 105);
}

}  // namespace
}  // namespace lobegraph
