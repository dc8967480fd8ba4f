// What devices say while only the window is served.
#include "acquisition/qt/NoticeGate.h"

#include <gmock/gmock.h>

#include <QObject>
#include <memory>

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Rig {
  NoticeGate Gate;
  std::unique_ptr<QObject> Receiver = std::make_unique<QObject>();
  std::vector<int> Heard;
  void Say(int what) {
    Gate.Pass(*Receiver, [this, what] { Heard.push_back(what); });
  }
};

TEST(NoticeGate, PassesNoticesAtOnce) {
  Rig rig;
  rig.Say(1);
  EXPECT_THAT(rig.Heard, ElementsAre(1));
}

TEST(NoticeGate, KeepsThemBackWhileItIsClosedAndGivesThemOutInTheirOrder) {
  Rig rig;
  {
    const NoticeGate::Closed closed(rig.Gate);
    rig.Say(1);
    rig.Say(2);
  }
  EXPECT_THAT(rig.Heard, IsEmpty()) << "its end is no yield";
  rig.Gate.GiveOut();
  EXPECT_THAT(rig.Heard, ElementsAre(1, 2));
}

TEST(NoticeGate, ALaterNoticeComesAfterThoseThatWereKeptBack) {
  Rig rig;
  {
    const NoticeGate::Closed closed(rig.Gate);
    rig.Say(1);
  }
  rig.Say(2);
  EXPECT_THAT(rig.Heard, ElementsAre(1, 2));
}

TEST(NoticeGate, WhatIsKeptBackGoesWithItsReceiver) {
  Rig rig;
  {
    const NoticeGate::Closed closed(rig.Gate);
    rig.Say(1);
  }
  rig.Receiver.reset();
  rig.Gate.GiveOut();
  EXPECT_THAT(rig.Heard, IsEmpty());
}

}  // namespace
}  // namespace lobegraph
