#include "app/help/HelpPages.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

TEST(HelpPages, EachWindowHasItsPage) {
  EXPECT_EQ(HelpPageOf("Form1"), "window.html");
  EXPECT_EQ(HelpPageOf("frmSettings"), "settings.html");
  EXPECT_EQ(HelpPageOf("frmChooseInput"), "chooser.html");
  EXPECT_EQ(HelpPageOf("frmdBMeter"), "meterwindow.html");
  EXPECT_EQ(HelpPageOf("frmEditLbg"), "editor.html");
}

TEST(HelpPages, SoHasEachKindOfBox) {
  EXPECT_EQ(HelpPageOf("QMessageBox"), "messages.html");
  EXPECT_EQ(HelpPageOf("QFileDialog"), "files.html");
  EXPECT_EQ(HelpPageOf("QColorDialog"), "settings.html");
  EXPECT_EQ(HelpPageOf("QInputDialog"), "first.html");
  EXPECT_EQ(HelpPageOf("QPrintDialog"), "printing.html");
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
  EXPECT_THAT(ViewerCommand("kchmviewer.desktop", "/a/LBGHelp.chm", "editor.html"),
              ElementsAre("kchmviewer", "-showPage", "editor.html", "/a/LBGHelp.chm"));
}

TEST(HelpPages, AViewerThatCannotBeToldThePageIsNotUsed) {
  EXPECT_THAT(ViewerCommand("xchm.desktop", "/a/LBGHelp.chm", "editor.html"), ::testing::IsEmpty());
  EXPECT_THAT(ViewerCommand("", "/a/LBGHelp.chm", kFirstHelpPage), ::testing::IsEmpty());
}

}  // namespace
}  // namespace lobegraph
