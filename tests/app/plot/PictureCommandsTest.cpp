#include "app/plot/PictureCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class PictureCommandsTest : public testing::Test, protected AppFixture {
 protected:
  PictureCommandsTest() { Start(); }
  void SaveAs(const std::string& path, std::size_t kind) {
    Dialogs.PictureToSave = ChosenFile{path, kind};
    Form.Pictures().Save();
  }
};

TEST_F(PictureCommandsTest, ThePictureIsWhatIsDrawn) {
  HoldBeam();
  Press(cmdLinear);
  const Picture picture = Form.Pictures().Shown();
  ASSERT_THAT(picture.Patterns, SizeIs(1));
  EXPECT_EQ(picture.Patterns[0].Plot.Trace.size(), Pattern.Plot().Trace.size());
  EXPECT_TRUE(picture.Style.Rectangular);
  EXPECT_EQ(picture.Title, "Three elements");
  EXPECT_EQ(picture.Colours.PlotBackground, Colour::FromStored(Shared.Settings.PlotBackground));
}

TEST_F(PictureCommandsTest, APairHasALegendInThePictureAndOnThePlot) {
  HoldPair();
  const Picture picture = Form.Pictures().Shown();
  ASSERT_THAT(picture.Patterns, SizeIs(2));
  EXPECT_EQ(picture.Title, "") << "the legend tells";
  EXPECT_THAT(Form.Board().Legend().Texts(), SizeIs(2));
  EXPECT_THAT(Form.Board().Legend().Lines(), SizeIs(6)) << "two samples, two marks and their edges";
  Press(cmdSmooth);
  EXPECT_THAT(Form.Board().Legend().Texts(), IsEmpty()) << "the overlay has ended";
}

TEST_F(PictureCommandsTest, EachKindIsSavedWithItsEnding) {
  HoldBeam();
  SaveAs("/home/ham/a", 3);
  EXPECT_THAT(Files.Held["/home/ham/a.svg"], HasSubstr("<svg"));
  SaveAs("/home/ham/b.svg", 0);
  EXPECT_THAT(Files.Held["/home/ham/b.svg"], HasSubstr("<svg")) << "the typed ending says what it is";
  SaveAs("/home/ham/c", 2);
  EXPECT_EQ(Files.Held["/home/ham/c.png"], "png 2004x2240");
  SaveAs("/home/ham/d", 4);
  EXPECT_EQ(Files.Held["/home/ham/d.pdf"], "pdf");
  EXPECT_EQ(Text(lblHint), "Picture saved in /home/ham/d.pdf");
  EXPECT_THAT(Dialogs.Filters[0],
              HasSubstr("PNG picture (*.png)|*.png|PNG picture, 2 times as fine (*.png)|"));
  EXPECT_EQ(Dialogs.Folders.back(), "/patterns/beam.png") << "offered beside the pattern";
}

TEST_F(PictureCommandsTest, AnOlderFileIsReplacedOnlyWhenTheUserAgrees) {
  HoldBeam();
  Files.Held["/home/ham/a.pdf"] = "old";
  Dialogs.Yes = false;
  SaveAs("/home/ham/a", 4);
  EXPECT_EQ(Files.Held["/home/ham/a.pdf"], "old");
  EXPECT_THAT(Dialogs.Questions,
              ElementsAre("LBG004 Filename A.PDF already exists\r\nDo you wish to replace it?"));
  Dialogs.Yes = true;
  SaveAs("/home/ham/a", 4);
  EXPECT_EQ(Files.Held["/home/ham/a.pdf"], "pdf");
}

TEST_F(PictureCommandsTest, ACancelledDialogAndAFaultWriteNothing) {
  HoldBeam();
  Dialogs.PictureToSave.reset();
  Form.Pictures().Save();
  Files.ReplaceFault = 61;
  SaveAs("/home/ham/full", 4);
  EXPECT_THAT(Dialogs.Texts(), ElementsAre(testing::StartsWith("Error 61 ")));
  EXPECT_FALSE(Files.Held.contains("/home/ham/full.pdf"));
}

TEST_F(PictureCommandsTest, WithoutAPatternTheLineSaysSo) {
  Activate();
  Form.Pictures().Save();
  EXPECT_THAT(Dialogs.Filters, IsEmpty());
  EXPECT_EQ(Text(lblHint), "There is no pattern to make a picture of.");
}

}  // namespace
}  // namespace lobegraph
