#include "data/formats/GraspCut.h"

#include <gmock/gmock.h>

#include <cmath>

#include "support/FaultOf.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

constexpr double kDegree = 57.29577951;

struct Shape {
  double First = 0;
  double Step = 10;
  int Count = 36;
  double At = 90;  ///< where the strongest direction lies
  int Component = 3;
  int Cut = 2;
  int Fields = 2;
  double Strength = 1;
};

/// Co-polar field with its strongest direction at `At`, cross-polar a tenth of it turned by 180 degrees.
std::string CutText(const Shape& shape) {
  std::string text = "Field data in cuts\n " + std::to_string(shape.First) + " " +
                     std::to_string(shape.Step) + " " + std::to_string(shape.Count) + "  0.0 " +
                     std::to_string(shape.Component) + " " + std::to_string(shape.Cut) + " " +
                     std::to_string(shape.Fields) + "\n";
  for (int i = 0; i < shape.Count; ++i) {
    const double at = (shape.First + i * shape.Step - shape.At) / kDegree;
    const double field = shape.Strength * (0.55 + 0.45 * std::cos(at));
    const double cross = 0.1 * shape.Strength * (0.55 - 0.45 * std::cos(at));
    text += " " + std::to_string(field * 0.6) + " " + std::to_string(field * 0.8);
    if (shape.Fields > 1) text += " " + std::to_string(cross) + " 0.0";
    if (shape.Fields > 2) text += " 9.0 9.0";
    text += "\n";
  }
  return text;
}

TEST(GraspCut, AConicalCutTurnsClockwiseWithForwardAtTheTop) {
  const PatternTable table = ReadGraspCut(TextOf(CutText({})));
  EXPECT_EQ(table.Name, "Field data in cuts");
  EXPECT_EQ(table.Points.size(), 36U);
  const auto levels = WholeDegrees(table);
  EXPECT_EQ(levels[270], 0) << "phi counts counter-clockwise";
  EXPECT_NEAR(levels[90], -20, 1e-3) << "amplitude of the complex field";
}

TEST(GraspCut, APolarCutHasItsAxisAtTheTop) {
  const auto levels = WholeDegrees(
      ReadGraspCut(TextOf(CutText({.First = -180, .Step = 5, .Count = 73, .At = 20, .Cut = 1}))));
  EXPECT_NEAR(levels[20], 0, 1e-9);
  EXPECT_NEAR(levels[200], -20, 1e-3);
}

TEST(GraspCut, HalfATurnOfThetaBecomesAHalfTurnSet) {
  ReadingsRecord record;
  TakeUpTable(ReadGraspCut(TextOf(CutText({.First = -90, .Step = 5, .Count = 37, .At = 0, .Cut = 1}))),
              record);
  EXPECT_TRUE(record.Plot180);
}

TEST(GraspCut, TheStrongerOfTwoComponentsCounts) {
  std::string text = "left and right\n0 45 8 90 2 2 2\n";
  for (int i = 0; i < 8; ++i) text += "0.1 0 0 " + std::string(i == 2 ? "5" : "1") + "\n";
  const auto levels = WholeDegrees(ReadGraspCut(TextOf(text)));
  EXPECT_EQ(levels[270], 0);
  EXPECT_NEAR(levels[0], -13.979, 1e-3);
}

TEST(GraspCut, OfTotalPowerTheFirstComponentCounts) {
  std::string text = "total\n0 45 8 90 9 2 2\n";
  for (int i = 0; i < 8; ++i) text += std::string(i == 2 ? "2" : "1") + " 0 7 0\n";
  const auto levels = WholeDegrees(ReadGraspCut(TextOf(text)));
  EXPECT_EQ(levels[270], 0);
  EXPECT_NEAR(levels[90], -6.0206, 1e-3);
}

TEST(GraspCut, OneOrThreeComponentsAreRead) {
  for (const int fields : {1, 3})
    EXPECT_EQ(WholeDegrees(ReadGraspCut(TextOf(CutText({.Fields = fields}))))[270], 0) << fields;
}

TEST(GraspCut, OfSeveralCutsTheStrongestOfTheLongestIsTaken) {
  const std::string three =
      CutText({.At = 30}) + CutText({.At = 60, .Strength = 3}) + CutText({.At = 120, .Strength = 2});
  EXPECT_EQ(WholeDegrees(ReadGraspCut(TextOf(three)))[300], 0);
  const std::string longer =
      CutText({.At = 60, .Strength = 3}) + CutText({.Step = 5, .Count = 72, .At = 120});
  EXPECT_EQ(WholeDegrees(ReadGraspCut(TextOf(longer)))[240], 0);
  const std::string mixed = CutText({.Step = 1, .Count = 360, .At = 60, .Cut = 1}) + CutText({.At = 120});
  EXPECT_EQ(WholeDegrees(ReadGraspCut(TextOf(mixed)))[240], 0) << "all round comes before over the top";
}

TEST(GraspCut, ATitleMayBeBlankAndBlankLinesMayFollow) {
  std::string text = CutText({});
  text.erase(0, text.find('\n'));
  EXPECT_EQ(ReadGraspCut(TextOf(text + "\n\n")).Points.size(), 36U);
}

TEST(GraspCut, NoFieldIsTheFaintestLevel) {
  std::string text = "x\n0 45 8 90 1 2 1\n0 0\n";
  for (int i = 1; i < 8; ++i) text += "1 0\n";
  EXPECT_EQ(WholeDegrees(ReadGraspCut(TextOf(text)))[0], kFaintestDb);
}

TEST(GraspCut, ACutThatBreaksOffIsRefused) {
  const std::string whole = CutText({});
  const std::string lastLine = whole.substr(0, whole.rfind('\n', whole.size() - 2) + 1);
  EXPECT_EQ(FaultOf([&] { ReadGraspCut(TextOf(lastLine)); }), fault::kInputPastEnd);
  EXPECT_EQ(FaultOf([&] { ReadGraspCut(TextOf(whole + "the next cut\n")); }), fault::kInputPastEnd);
}

TEST(GraspCut, RatiosAndOtherTextsAreNoPattern) {
  for (const int ratio : {5, 6, 7, 8})
    EXPECT_EQ(FaultOf([&] { ReadGraspCut(TextOf(CutText({.Component = ratio}))); }), fault::kTypeMismatch);
  for (const char* text :
       {"", "\n\n", "hello\nworld\n", "x\n0 1 0 0 3 2 2\n", "x\n0 1 1e9 0 3 2 2\n", "x\n0 1 8 0 3 3 2\n",
        "x\n0 1 8 0 0 2 2\n", "x\n0 1 8 0 3 2 4\n", "x\n0 1 2.5 0 3 2 2\n", "x\n0 1 2 0 3 2 2\n1 0\n1 0\n",
        "x\n0 45 2 0 3 2 1\n1 0\n1 0\n"})
    EXPECT_EQ(FaultOf([&] { ReadGraspCut(TextOf(text)); }), fault::kTypeMismatch) << text;
}

}  // namespace
}  // namespace lobegraph
