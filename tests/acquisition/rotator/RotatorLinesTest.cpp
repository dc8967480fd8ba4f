#include "acquisition/rotator/RotatorLines.h"

#include <gtest/gtest.h>

#include <limits>

#include "acquisition/rotator/LineCutter.h"

namespace lobegraph {
namespace {

using Kind = RotatorOrder::Kind;

struct OrderRow {
  const char* Line;
  RotatorOrder Order;
};
const OrderRow kOrders[] = {
    {"alive", {}},
    {"list", {Kind::List}},
    {"open 3 603 9600 /dev/ttyUSB0", {Kind::Open, 3, {603, "/dev/ttyUSB0", 9600}}},
    {"open 4 2 0 localhost:4533", {Kind::Open, 4, {2, "localhost:4533", 0}}},
    {"open 5 1 0", {Kind::Open, 5, {1, "", 0}}},
    {"open 6 603 0 /dev/my port", {Kind::Open, 6, {603, "/dev/my port", 0}}},
    {"every 200", {Kind::Every, 0, {}, 0, 200}},
    {"goto 7 -12.50", {Kind::GoTo, 7, {}, -12.5}},
    {"left 8", {Kind::Left, 8}},
    {"right 9", {Kind::Right, 9}},
    {"stop 10", {Kind::Stop, 10}},
    {"park 11", {Kind::Park, 11}},
    {"close 12", {Kind::Close, 12}},
};

TEST(RotatorLines, EachOrderIsALineAndIsReadAgain) {
  for (const auto& [line, order] : kOrders) {
    EXPECT_EQ(TextOf(order), line);
    EXPECT_EQ(OrderIn(line), order) << line;
  }
}

struct NewsRow {
  const char* Line;
  RotatorNews News;
};
const NewsRow kNews[] = {
    {"hello 1", told::Hello{1}},
    {"model 603 serial Yaesu\tGS-232B", RotatorModel{603, RotatorModel::Reached::Serial, "Yaesu", "GS-232B"}},
    {"model 1 directly Hamlib\t", RotatorModel{1, RotatorModel::Reached::Directly, "Hamlib", ""}},
    {"list-ends", told::ListEnds{}},
    {"can -180.00 450.00 position goto turn stop park",
     RotatorAbilities{true, true, true, true, true, -180, 450}},
    {"can 0.00 360.00", RotatorAbilities{}},
    {"can 0.00 360.00 position stop", RotatorAbilities{true, false, false, true, false, 0, 360}},
    {"position 12345.678901 359.500", RotatorPosition{12345.678901, 359.5}},
    {"position 0.000000 -180.000", RotatorPosition{0, -180}},
    {"done 7", told::Done{7}},
    {"failed 8 nobody-there", told::Failed{8, RotatorFault::NobodyThere}},
    {"no-position no-answer", told::NoPosition{RotatorFault::NoAnswer}},
    {"waiting 2.5", told::Waiting{2.5}},
    {"stopped-itself", told::StoppedItself{}},
};

TEST(RotatorLines, EachPieceOfNewsIsALineAndIsReadAgain) {
  for (const auto& [line, news] : kNews) {
    EXPECT_EQ(TextOf(news), line);
    EXPECT_EQ(NewsIn(line), news) << line;
  }
}

TEST(RotatorLines, ALineThatIsNoOrderIsNotObeyedInParts) {
  for (const char* line : {"",
                           " ",
                           "Alive",
                           "alive 3",
                           " alive",
                           "alive ",
                           "goto",
                           "goto 7",
                           "goto 7 ",
                           "goto 7 nan",
                           "goto 7 inf",
                           "goto 7 1e2",
                           "goto 7 90 90",
                           "open 1 2 0 ",
                           "goto x 90",
                           "goto 7 1081",
                           "goto 7 -1081",
                           "goto -7 90",
                           "left",
                           "left 1.5",
                           "stop 99999999999",
                           "stop 1000000001",
                           "every",
                           "every -1",
                           "every 60001",
                           "open",
                           "open 1",
                           "open 1 2",
                           "open 1 x 0 /dev/ttyS1",
                           "right 9\r",
                           "every 0x10",
                           "list 3",
                           "nonsense 4"})
    EXPECT_EQ(OrderIn(line), std::nullopt) << line;
}

TEST(RotatorLines, ALineThatIsNoNewsSaysNothing) {
  for (const char* line : {"",
                           " ",
                           "hello",
                           "hello x",
                           "hello 1 1",
                           "position",
                           "position 1.0",
                           "position 1.0 nan",
                           "position nan 1.0",
                           "position 1.0 inf",
                           "position -1.0 20",
                           "position 1.0 1e9",
                           "position 1.0 1081",
                           "position 1.0 90 ",
                           "position 1.0 90 0",
                           "position 1,5 90",
                           "can",
                           "can 0",
                           "can 360 0",
                           "can 0 360 fly",
                           "can 0 nan",
                           "can 0 360  goto",
                           "done",
                           "done x",
                           "done 1 2",
                           "failed",
                           "failed 3",
                           "failed 3 badly",
                           "failed refused",
                           "no-position",
                           "no-position what",
                           "waiting",
                           "waiting -1",
                           "waiting inf",
                           "stopped-itself 1",
                           "model 1 serial no tab",
                           "model x serial a\tb",
                           "model 1 by-post a\tb",
                           "list-ends 1"})
    EXPECT_EQ(NewsIn(line), std::nullopt) << line;
}

TEST(RotatorLines, NothingThatATerminalWouldObeyComesOfANameOrAPort) {
  EXPECT_EQ(TextOf(RotatorModel{1, RotatorModel::Reached::Serial, "A\033[2JB\n", "C\tD\x7f"}),
            "model 1 serial A[2JB\tCD");
  EXPECT_EQ(TextOf(RotatorOrder{Kind::Open, 1, {2, "a\nstop 3", 0}}), "open 1 2 0 astop 3");
  const auto model = NewsIn("model 1 serial A\033[2J\tB\r");
  ASSERT_TRUE(model);
  EXPECT_EQ(std::get<RotatorModel>(*model).Maker, "A[2J");
  EXPECT_EQ(std::get<RotatorModel>(*model).Name, "B");
}

TEST(RotatorFault, EachHasItsWordAndItsSentence) {
  for (int i = 0; i <= static_cast<int>(RotatorFault::Inside); ++i) {
    const auto fault = static_cast<RotatorFault>(i);
    EXPECT_EQ(FaultNamed(WordOf(fault)), fault);
    EXPECT_EQ(WordOf(fault).find(' '), std::string::npos);
    EXPECT_TRUE(SentenceOf(fault).ends_with('.'));
  }
  EXPECT_EQ(FaultNamed("other"), std::nullopt);
}

TEST(LineCutter, LinesComeOutWholeHoweverTheyWereTorn) {
  LineCutter cutter(10);
  cutter.Take("on");
  EXPECT_EQ(cutter.Next(), std::nullopt);
  cutter.Take("e\ntwo\n\nth");
  EXPECT_EQ(cutter.Next(), "one");
  EXPECT_EQ(cutter.Next(), "two");
  EXPECT_EQ(cutter.Next(), "");
  EXPECT_EQ(cutter.Next(), std::nullopt);
  cutter.Take("ree\n");
  EXPECT_EQ(cutter.Next(), "three");
}

TEST(LineCutter, ALineThatIsTooLongIsDroppedWholeAndTheNextOneIsNot) {
  LineCutter cutter(5);
  cutter.Take("12345\n123456\nabc\n");
  EXPECT_EQ(cutter.Next(), "12345");
  EXPECT_EQ(cutter.Next(), "abc");
  for (int i = 0; i < 1000; ++i) cutter.Take("endless");
  EXPECT_EQ(cutter.Next(), std::nullopt);
  cutter.Take("end\nok\n");
  EXPECT_EQ(cutter.Next(), "ok");
  EXPECT_EQ(cutter.Next(), std::nullopt);
}

}  // namespace
}  // namespace lobegraph
