#include "app/plot/FigureNotes.h"

#include <gmock/gmock.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;

TEST(FigureNotesTest, APlaceholderPromisesNothing) {
  EXPECT_EQ(AngleNote("Angle"), "Angle of -3dB down points");
  EXPECT_EQ(GainNote("Gain", "  3", true), "Estimate of gain");
}

TEST(FigureNotesTest, TheGainSaysWhichRatioWasAssumed) {
  const struct {
    const char* Elements;
    bool Horizontal;
    const char* Note;
  } cases[] = {
      {"", true,
       "assumed 1.50 times as wide as this one (no number of elements chosen, as for 3, horizontal)"},
      {"   ", false,
       "assumed 0.67 times as wide as this one (no number of elements chosen, as for 3, vertical)"},
      {"  2", true, "assumed 2.00 times as wide as this one (2 elements, horizontal)"},
      {"  4", true, "assumed 1.40 times as wide as this one (4 elements, horizontal)"},
      {"6", true, "assumed 1.50 times as wide as this one (6 elements, horizontal)"},
      {"  > 8!", true, "assumed 1.00 times as wide as this one (> 8! elements, horizontal)"},
      {"  1", true, "assumed to radiate all round (1 element, horizontal)"},
  };
  for (const auto& [elements, horizontal, note] : cases)
    EXPECT_EQ(GainNote("7.89 dBi", elements, horizontal),
              std::string("Estimate of gain from the beamwidth: the other plane is ") + note);
}

TEST(FigureNotesTest, TheIntegratedGainSaysWhatWasTakenOff) {
  EXPECT_EQ(IntegratedGainNote("  3", true),
            "Estimate of gain by integration: the beam is assumed round, less 1.76 dB for the other plane (3 "
            "elements, horizontal)");
  EXPECT_EQ(
      IntegratedGainNote("  2", false),
      "Estimate of gain by integration: the beam is assumed round, less -3.00 dB for the other plane (2 "
      "elements, vertical)");
}

class FigureNotesInTheWindow : public ::testing::Test, protected AppFixture {
 protected:
  FigureNotesInTheWindow() { Start(); }
  std::string LastToolTip(const std::string& name) const {
    const auto all = Only(name + " tooltip");
    return all.empty() ? "" : all.back();
  }
};

TEST_F(FigureNotesInTheWindow, TheToolTipFollowsTheElementsAndTheWayTheGainWasFound) {
  HoldBeam();
  Choose("  2");
  EXPECT_THAT(LastToolTip("txtGain"), ::testing::HasSubstr("(2 elements, horizontal)"));
  EXPECT_THAT(LastToolTip("txtAngle"), ::testing::HasSubstr("whole readings"));
  Press(cmdIntegrate);
  EXPECT_THAT(LastToolTip("txtGain"), ::testing::HasSubstr("by integration"));
  Press(cmdPolarization);
  EXPECT_THAT(LastToolTip("txtGain"), ::testing::HasSubstr("from the beamwidth"));
}

}  // namespace
}  // namespace lobegraph
