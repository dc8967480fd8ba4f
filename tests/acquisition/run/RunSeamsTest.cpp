// The small parts between a run and the window: messages that wait, the watched yield, the one-second timer,
// pauses.
#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(DeviceMessages, are_shown_at_once_while_nothing_runs) {
  CollectionRig rig;
  rig.Waiting.Post({"port gone"});
  EXPECT_THAT(rig.Messages.Shown, ElementsAre(UserMessage{"port gone"}));
}

TEST(DeviceMessages, of_a_run_are_shown_once_in_their_order) {
  CollectionRig rig;
  rig.Flags.IsSweeping = true;
  rig.Waiting.Post({"first"});
  rig.Waiting.Post({"second"});
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
  rig.Flags.IsSweeping = false;
  rig.Waiting.ShowWaiting();
  rig.Waiting.ShowWaiting();
  EXPECT_THAT(rig.Messages.Shown, ElementsAre(UserMessage{"first"}, UserMessage{"second"}));
}

TEST(SourceWatch, serves_the_window_before_it_asks_and_asks_only_while_it_watches) {
  CollectionRig rig;
  rig.Sound.Failure = "an old failure";
  rig.Pump.ProcessPendingEvents();
  EXPECT_EQ(rig.Flags.HaltRequested, 0);
  rig.Pump.Begin();
  rig.Window.OnYield = [&](int) { rig.Sound.Failure.clear(); };
  rig.Pump.ProcessPendingEvents();
  EXPECT_FALSE(rig.Pump.Lost());
  rig.Window.OnYield = [&](int) { rig.Sound.Failure = "gone"; };
  rig.Pump.ProcessPendingEvents();
  EXPECT_TRUE(rig.Pump.Lost());
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
  EXPECT_EQ(rig.Pump.End(), "gone");
  EXPECT_EQ(rig.Pump.End(), "");
}

TEST(tmrOneSec, shows_the_polls_of_the_last_second_and_counts_anew) {
  test::FakeDisplay window;
  std::int32_t polls = 4711;
  tmrOneSec_Timer(polls, window);
  EXPECT_EQ(polls, 0);
  EXPECT_EQ(window.lblStateCount, "4711");
  tmrOneSec_Timer(polls, window);
  EXPECT_EQ(window.lblStateCount, "0");
}

TEST(Pause, serves_the_window_once_and_then_sleeps) {
  FakeClock clock;
  FakePump pump;
  pump.OnYield = [&](int) { EXPECT_EQ(clock.SleptMs, 0); };
  Pause(pump, clock, 5);
  EXPECT_EQ(pump.Yields, 1);
  EXPECT_EQ(clock.SleptMs, 5);
}

TEST(RequestClose, ends_waits_that_look_at_halt_only) {
  RunFlags flags;
  flags.RequestClose();
  EXPECT_EQ(flags.HaltRequested, 1);
  EXPECT_TRUE(flags.CloseRequested);
}

TEST(FakeClock, throws_when_time_stands_still) {
  FakeClock clock;
  EXPECT_THROW(
      {
        for (;;) clock.timeGetTime();
      },
      std::logic_error);
}

}  // namespace
}  // namespace lobegraph
