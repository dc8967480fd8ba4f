#include "app/HelpPages.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

TEST(HelpPages, EachWindowHasItsPage) {
  EXPECT_EQ(HelpPageOf("Form1")->File, "window.html");
  EXPECT_EQ(HelpPageOf("frmSettings")->File, "settings.html");
  EXPECT_EQ(HelpPageOf("frmChooseInput")->File, "chooser.html");
  EXPECT_EQ(HelpPageOf("frmdBMeter")->File, "meterwindow.html");
  EXPECT_EQ(HelpPageOf("frmEditLbg")->File, "editor.html");
}

TEST(HelpPages, SoHasEachKindOfBox) {
  EXPECT_EQ(HelpPageOf("QMessageBox")->File, "messages.html");
  EXPECT_EQ(HelpPageOf("QFileDialog")->File, "files.html");
  EXPECT_EQ(HelpPageOf("QColorDialog")->File, "settings.html");
  EXPECT_EQ(HelpPageOf("QInputDialog")->File, "first.html");
  EXPECT_EQ(HelpPageOf("QPrintDialog")->File, "printing.html");
}

TEST(HelpPages, AnUnknownWindowHasNone) { EXPECT_FALSE(HelpPageOf("QWidget")); }

TEST(HelpPages, AMessageWithACodeHasItsPlace) {
  EXPECT_EQ(HelpAnchorOf("LBG007 Value for Rotate must be in the range 1 - 359"), "LBG007");
  EXPECT_EQ(HelpAnchorOf("LBG004 Filename A.LBG already exists"), "LBG004");
  EXPECT_EQ(HelpAnchorOf("The screen cannot be shrunk when it is maximised"), "");
  EXPECT_EQ(HelpAnchorOf("LBG"), "");
  EXPECT_EQ(HelpAnchorOf("LBGxyz"), "");
  EXPECT_EQ(HelpAnchorOf("ABC123 "), "");
}

TEST(HelpPages, AViewerThatCanIsToldThePage) {
  const HelpPage page = *HelpPageOf("frmEditLbg");
  EXPECT_THAT(ViewerCommand("xchm.desktop", "/a/LBGHelp.chm", page),
              ElementsAre("xchm", "-c", "6", "/a/LBGHelp.chm"));
  EXPECT_THAT(ViewerCommand("kchmviewer.desktop", "/a/LBGHelp.chm", page),
              ElementsAre("kchmviewer", "-showPage", "editor.html", "/a/LBGHelp.chm"));
}

TEST(HelpPages, AnyOtherViewerOpensTheGuideAtItsFront) {
  EXPECT_THAT(ViewerCommand("other.desktop", "/a/LBGHelp.chm", FirstHelpPage()),
              ElementsAre("xdg-open", "/a/LBGHelp.chm"));
}

}  // namespace
}  // namespace lobegraph
