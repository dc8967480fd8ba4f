#include "rotator/DeviceOrders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rotator/FakeDevice.h"

namespace lobegraph {
namespace {

using Kind = RotatorOrder::Kind;
using testing::ElementsAre;

struct Rig {
  test::FakeDevice Device;
  std::vector<std::string> Told;
  double NowS = 100;
  DeviceOrders Orders{Device, [this](const RotatorNews& news) { Told.push_back(TextOf(news)); },
                      [this] { return NowS += 0.5; }};

  void Open() {
    Orders.Obey({Kind::Open, 1, {1, "", 0}});
    Told.clear();
  }
};

TEST(DeviceOrders, OpeningTellsWhatTheRotatorCanDo) {
  Rig rig;
  rig.Orders.Obey({Kind::Open, 1, {1, "", 0}});
  EXPECT_THAT(rig.Told, ElementsAre("can -180.00 450.00 position goto turn stop park", "done 1"));
  EXPECT_TRUE(rig.Orders.IsOpen());
  EXPECT_FALSE(rig.Orders.Driven());
}

TEST(DeviceOrders, AnOpeningThatFailsIsTold) {
  Rig rig;
  rig.Device.FailIn("open 1", RotatorFault::UnknownModel);
  rig.Orders.Obey({Kind::Open, 4, {1, "", 0}});
  EXPECT_THAT(rig.Told, ElementsAre("failed 4 unknown-model"));
  EXPECT_FALSE(rig.Orders.IsOpen());
}

TEST(DeviceOrders, NothingIsDoneBeforeItIsOpen) {
  Rig rig;
  for (const Kind kind : {Kind::GoTo, Kind::Left, Kind::Right, Kind::Stop, Kind::Park, Kind::Close})
    rig.Orders.Obey({kind, 7});
  rig.Orders.AskPosition();
  EXPECT_TRUE(rig.Device.Calls().empty());
  EXPECT_EQ(rig.Told, std::vector<std::string>(6, "failed 7 nobody-there"));
  EXPECT_FALSE(rig.Orders.Driven());
}

TEST(DeviceOrders, EachOrderIsItsCall) {
  Rig rig;
  rig.Open();
  rig.Orders.Obey({Kind::GoTo, 2, {}, -90});
  rig.Orders.Obey({Kind::Left, 3});
  rig.Orders.Obey({Kind::Right, 4});
  rig.Orders.Obey({Kind::Park, 5});
  rig.Orders.Obey({Kind::Stop, 6});
  rig.Orders.Obey({Kind::Close, 7});
  EXPECT_THAT(rig.Device.Calls(),
              ElementsAre("open 1", "goto -90", "left", "right", "park", "stop", "close"));
  EXPECT_THAT(rig.Told, ElementsAre("done 2", "done 3", "done 4", "done 5", "done 6", "done 7"));
}

TEST(DeviceOrders, APositionCarriesTheMiddleOfQuestionAndAnswer) {
  Rig rig;
  rig.Open();
  rig.Orders.AskPosition();  // asked at 100.5, answered at 101
  EXPECT_THAT(rig.Told, ElementsAre("position 100.750000 12.500"));
}

TEST(DeviceOrders, APositionThatCannotBeHadIsToldWithItsReason) {
  Rig rig;
  rig.Open();
  rig.Device.FailIn("position", RotatorFault::Nonsense);
  rig.Orders.AskPosition();
  EXPECT_THAT(rig.Told, ElementsAre("no-position nonsense"));
}

TEST(DeviceOrders, AMoveThatFailsMayStillHaveSetItInMotion) {
  for (const Kind kind : {Kind::GoTo, Kind::Left, Kind::Right, Kind::Park}) {
    Rig rig;
    rig.Open();
    for (const char* call : {"goto 0", "left", "right", "park"}) {
      rig.Device.FailIn(call, RotatorFault::NoAnswer);
      rig.Orders.Obey({kind, 2});
    }
    EXPECT_TRUE(rig.Orders.Driven());
    rig.Device.FailIn("", std::nullopt);
    EXPECT_TRUE(rig.Orders.StopWhatMoves());
    EXPECT_FALSE(rig.Orders.Driven());
  }
}

TEST(DeviceOrders, WhatWasNeverSetInMotionIsNotStopped) {
  Rig rig;
  rig.Open();
  rig.Orders.AskPosition();
  EXPECT_TRUE(rig.Orders.StopWhatMoves());
  EXPECT_EQ(rig.Device.Count("stop"), 0);
}

TEST(DeviceOrders, AStopThatFailsIsTriedAgainAtAPortOpenedAnew) {
  Rig rig;
  rig.Open();
  rig.Orders.Obey({Kind::Right, 2});
  rig.Device.FailIn("stop", RotatorFault::NobodyThere);
  EXPECT_FALSE(rig.Orders.StopWhatMoves());
  EXPECT_FALSE(rig.Orders.StopWhatMoves());
  rig.Device.FailIn("", std::nullopt);
  EXPECT_TRUE(rig.Orders.StopWhatMoves());
  EXPECT_EQ(rig.Device.Count("open 1"), 3);
}

TEST(DeviceOrders, TheModelsAreListed) {
  Rig rig;
  rig.Orders.Obey({Kind::List});
  EXPECT_THAT(rig.Told,
              ElementsAre("model 1 directly Hamlib\tDummy", "model 603 serial Yaesu\tGS-232B", "list-ends"));
}

}  // namespace
}  // namespace lobegraph
