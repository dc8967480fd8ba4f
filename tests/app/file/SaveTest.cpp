// Save File and the description that is saved with a pattern.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using enum Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SaveTest : public testing::Test, protected AppFixture {
 protected:
  SaveTest() { Start(); }
};

TEST_F(SaveTest, WithNothingHeldSaysSo) {
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG003 No data to save"));
  EXPECT_THAT(Dialogs.Folders, IsEmpty()) << "no file is asked for";
  EXPECT_THAT(Files.Held, IsEmpty());
  EXPECT_EQ(Record().Description, "");
}

TEST_F(SaveTest, AFileOfANegativeCountLeavesNothingToSave) {
  Files.Held["/patterns/odd.lbg"] = "-5\r\n";
  Load("/patterns/odd.lbg");
  Forget();
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG003 No data to save"));
}

TEST_F(SaveTest, WritesThePatternThatCanBeLoadedAgain) {
  HoldBeam(90);
  Enter(txtRotate, "30");
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
  EXPECT_THAT(Dialogs.Questions, IsEmpty());
  EXPECT_EQ(Files.Held["/patterns/new.lbg"], WritePatternText(Record(), "V2.1.0"));
  EXPECT_EQ(Text(txtFileName), "new.lbg");
  EXPECT_EQ(Record().FilePath, "/patterns/new.lbg");
  EXPECT_EQ(Record().FileName, "new.lbg");
}

TEST_F(SaveTest, ATypedDescriptionIsSavedAndShown) {
  HoldBeam();
  Type(txtDescription, "Five elements, 10 m up");
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Files.Held["/patterns/new.lbg"], HasSubstr("\"Five elements, 10 m up\"\r\n"));
  EXPECT_EQ(Text(lblFileDescription), "Five elements, 10 m up");
}

TEST_F(SaveTest, AnEmptyDescriptionIsSavedAsSuch) {
  HoldBeam();
  Type(txtDescription, "");
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Files.Held["/patterns/new.lbg"], HasSubstr("\"No description\"\r\n"));
  EXPECT_EQ(Text(lblFileDescription), "No description");
}

TEST_F(SaveTest, WithoutADescriptionTheBoxStaysEmptySoThatOneCanBeTyped) {
  HoldBeam();
  Type(txtDescription, "");
  Form.File().txtDescription_Change();
  SaveAs("/patterns/new.lbg");
  Activate();
  EXPECT_EQ(Text(txtDescription), "");
  EXPECT_EQ(Text(lblFileDescription), "No description");
  Load("/patterns/new.lbg");
  EXPECT_EQ(Text(txtDescription), "");
  EXPECT_EQ(Text(lblFileDescription), "No description");
  SaveAs("/patterns/new.lbg");
  EXPECT_THAT(Files.Held["/patterns/new.lbg"], HasSubstr("\"No description\"\r\n"));
}

TEST_F(SaveTest, TheDescriptionIsTakenBeforeTheFileIsAskedFor) {
  HoldBeam();
  Type(txtDescription, "");
  Dialogs.FileToSave.reset();
  Press(cmdSaveData);
  EXPECT_EQ(Text(lblFileDescription), "No description");
  EXPECT_GT(Log.size(), 0U);
  EXPECT_LT(PlaceOf("lblFileDescription=No description"), PlaceOf("save dialog"));
}

TEST_F(SaveTest, ACancelledOrEmptyDialogEndsSilently) {
  HoldBeam();
  for (const std::optional<std::string>& choice :
       {std::optional<std::string>(), std::optional<std::string>("")}) {
    Dialogs.FileToSave = choice;
    Press(cmdSaveData);
    EXPECT_THAT(Dialogs.Texts(), IsEmpty());
    EXPECT_THAT(Only("write "), IsEmpty());
    EXPECT_EQ(Text(txtFileName), "beam.lbg");
  }
}

TEST_F(SaveTest, NamesGetTheirEnding) {
  HoldBeam();
  for (const auto& [typed, saved] : {std::pair{"/p/new", "/p/new.lbg"},
                                     {"/p/new.txt", "/p/new.txt.lbg"},
                                     {"/p/NEW.LBG", "/p/NEW.LBG"},
                                     {"/p/lbg", "/p/lbg.lbg"}}) {
    SaveAs(typed);
    EXPECT_TRUE(Files.Held.contains(saved)) << typed;
  }
}

TEST_F(SaveTest, AnExistingFileIsReplacedOnYes) {
  HoldBeam();
  Files.Held["/p/old.lbg"] = "old";
  Dialogs.Yes = true;
  SaveAs("/p/old");
  EXPECT_THAT(Dialogs.Questions,
              ElementsAre("LBG004 Filename OLD.LBG already exists\r\nDo you wish to replace it?"));
  EXPECT_NE(Files.Held["/p/old.lbg"], "old");
  EXPECT_EQ(Text(txtFileName), "old.lbg");
}

TEST_F(SaveTest, AnExistingFileStaysOnNo) {
  HoldChanged([](ReadingsRecord& record) { record.NumReadings = 360; });
  Files.Held["/p/old.lbg"] = "old";
  Dialogs.Yes = false;
  SaveAs("/p/old.lbg");
  EXPECT_EQ(Files.Held["/p/old.lbg"], "old");
  EXPECT_THAT(Only("write "), IsEmpty());
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
  EXPECT_EQ(Record().FilePath, "/patterns/beam.lbg");
  EXPECT_EQ(Record().NumReadings, 360);
}

TEST_F(SaveTest, OnlyTheExactNameAsks) {
  HoldBeam();
  Files.Held["/p/OLD.lbg"] = "old";
  SaveAs("/p/old.lbg");
  EXPECT_THAT(Dialogs.Questions, IsEmpty());
}

TEST_F(SaveTest, AFullDiskKeepsTheOldNameAndSaysSo) {
  HoldBeam();
  Files.ReplaceFault = fault::kDiskFull;
  SaveAs("/p/new.lbg");
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_THAT(Dialogs.Messages[0].Text,
              testing::MatchesRegex(
                  "Error 61 \\(Disk full\\) in line [0-9]+ of procedure cmdSaveData_Click of Form Form1"));
  EXPECT_EQ(Text(txtFileName), "beam.lbg");
  EXPECT_EQ(Record().FileName, "beam.lbg");
  EXPECT_EQ(Record().FilePath, "/patterns/beam.lbg");
  EXPECT_EQ(Shared.WorkingFolder, "/patterns/");
}

TEST_F(SaveTest, ASetOf361ReadingsIsCappedInTheFileAndInMemory) {
  HoldChanged([](ReadingsRecord& record) {
    record.NumReadings = 360;
    record.Readings(360) = 5.F;
  });
  SaveAs("/p/new.lbg");
  EXPECT_EQ(Record().NumReadings, 359);
  EXPECT_THAT(Files.Held["/p/new.lbg"], testing::StartsWith("359\r\n"));
}

TEST_F(SaveTest, TheCapHoldsForTheOriginalsToo) {
  HoldChanged([](ReadingsRecord& record) {
    record.NumReadings = 360;
    record.Readings(360) = 5.F;
  });
  SaveAs("/p/new.lbg");
  Press(cmdOriginalData);
  EXPECT_EQ(Record().NumReadings, 359);
  Forget();
  Activate();
  EXPECT_THAT(Dialogs.Texts(), IsEmpty());
}

TEST_F(SaveTest, TheNextDialogStartsWhereTheFileWent) {
  HoldBeam();
  SaveAs("/p/new.lbg");
  SaveAs("/p/new.lbg");
  EXPECT_THAT(Dialogs.Folders, ElementsAre("/home/ham/", "/patterns/", "/p/"));
}

TEST_F(SaveTest, QuotesNeverGetIntoTheDescription) {
  Type(txtDescription, "a \"quoted\" word");
  Form.File().txtDescription_Change();
  EXPECT_EQ(Text(txtDescription), "a quoted word");
  EXPECT_EQ(Record().Description, "a quoted word");
}

TEST_F(SaveTest, ADescriptionWithoutQuotesIsNotWrittenBackWhichWouldMoveTheCursor) {
  Type(txtDescription, "<b>R&D</b>");
  Form.File().txtDescription_Change();
  EXPECT_THAT(Log, IsEmpty());
  EXPECT_EQ(Record().Description, "<b>R&D</b>");
}

TEST_F(SaveTest, EnterInTheDescriptionUpdatesTheCaptionOnly) {
  Type(lblFileDescription, "before");
  Type(txtDescription, "typed");
  Form.File().txtDescription_Change();
  EXPECT_EQ(Text(lblFileDescription), "before") << "the caption waits for Enter or the focus leaving";
  Press(txtDescription);
  EXPECT_EQ(Text(lblFileDescription), "typed");
  EXPECT_EQ(Text(txtDescription), "typed") << "no line break gets in";
}

TEST_F(SaveTest, ATypedDescriptionSurvivesARedraw) {
  HoldBeam();
  Type(txtDescription, "typed");
  Form.File().txtDescription_Change();
  Activate();
  EXPECT_EQ(Text(txtDescription), "typed");
}

}  // namespace
}  // namespace lobegraph
