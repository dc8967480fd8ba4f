#include "app/print/PrintCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintCommandsTest : public testing::Test, protected AppFixture {
 protected:
  PrintCommandsTest() {
    Start();
    HoldBeam();
  }
  void Print() {
    Forget();
    Press(Control::cmdPrint);
  }
};

TEST_F(PrintCommandsTest, prints_the_window_as_large_as_the_page_allows) {
  Print();
  EXPECT_THAT(Log, ElementsAre("print dialog", "copies 1", "capture", "paint 1 of 1 17335x8667.5",
                               "end document", "clear picture", "lblHint=Printed to laser"));
}

TEST_F(PrintCommandsTest, a_cancelled_dialog_prints_nothing_and_says_nothing) {
  Printer.Answer = kPrintCancelled;
  Print();
  EXPECT_THAT(Log, ElementsAre("print dialog"));
  EXPECT_THAT(Dialogs.Messages, IsEmpty());
}

TEST_F(PrintCommandsTest,
       three_copies_are_three_documents_each_captured_anew_and_the_printer_makes_one_of_each) {
  Printer.Copies = 3;
  Print();
  EXPECT_THAT(Log, ElementsAre("print dialog", "copies 1",                                               //
                               "capture", "paint 1 of 3 17335x8667.5", "end document", "clear picture",  //
                               "capture", "paint 2 of 3 17335x8667.5", "end document", "clear picture",  //
                               "capture", "paint 3 of 3 17335x8667.5", "end document", "clear picture",  //
                               "lblHint=3 copies printed to laser"));
  EXPECT_EQ(Printer.Copies, 1);
  EXPECT_FALSE(Printer.HoldsPicture);
}

TEST_F(PrintCommandsTest, numbered_copies_that_are_there_are_asked_for_once) {
  Printer.Copies = 3;
  Printer.File = "folder/report.pdf";
  Files.Held["folder/report-2.pdf"] = "mine";
  Dialogs.Yes = false;
  Print();
  EXPECT_THAT(Log, ElementsAre("print dialog", "copies 1",
                               "question report-2.pdf already exists (1 of 3 copies)\r\n"
                               "Do you wish to replace what is there?"));
  Printer.Copies = 1;
  Files.Held["folder/report.pdf"] = "mine";
  Print();
  EXPECT_EQ(Dialogs.Questions.size(), 1U) << "the dialog asks for the one that was named";
}

TEST_F(PrintCommandsTest, with_no_copies_nothing_is_printed) {
  for (const int copies : {0, -1}) {
    Printer.Copies = copies;
    Print();
    EXPECT_THAT(Log, ElementsAre("print dialog", "copies 1"));
    EXPECT_THAT(Dialogs.Messages, IsEmpty());
  }
}

TEST_F(PrintCommandsTest, a_dialog_that_fails_shows_its_error_code) {
  Printer.Answer = 4099;
  Print();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG999 Print request returned extended error code 4099\r\n"
                                           "Please note this number and call for support"));
  EXPECT_THAT(Only("capture"), IsEmpty());
}

TEST_F(PrintCommandsTest, negative_error_codes_are_shown_as_well) {
  Printer.Answer = -1;
  Print();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG999 Print request returned extended error code -1\r\n"
                                           "Please note this number and call for support"));
}

TEST_F(PrintCommandsTest, a_page_without_room_is_error_5) {
  Printer.Area = {1000, 1000};
  Print();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG014 Printing error not presently handled, Code=5"));
  EXPECT_THAT(Only("paint"), IsEmpty());
  EXPECT_FALSE(Printer.HoldsPicture);
}

TEST_F(PrintCommandsTest, a_rejected_job_is_error_482_and_ends_the_copies) {
  Printer.Copies = 3;
  Printer.EndFault = fault::kPrinter;
  Print();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG014 Printing error not presently handled, Code=482"));
  EXPECT_EQ(CountOf("end document"), 1);
  EXPECT_THAT(Only("lblHint"), IsEmpty());
  EXPECT_FALSE(Printer.HoldsPicture);
}

TEST_F(PrintCommandsTest, a_printer_that_takes_no_document_is_told) {
  Printer.PaintFault = fault::kPrinter;
  Print();
  EXPECT_THAT(Dialogs.Texts(), ElementsAre("LBG014 Printing error not presently handled, Code=482"));
  EXPECT_EQ(CountOf("end document"), 0);
  EXPECT_FALSE(Printer.HoldsPicture);
}

TEST_F(PrintCommandsTest, printing_draws_nothing_anew_and_keeps_the_analysis_lines) {
  Press(Control::cmdLinear);
  Press(Control::cmdPatternAnalysis);
  Form.Analysis().MouseDown(kLeftButton, {100, 200});
  Print();
  EXPECT_THAT(Surface.Operations, IsEmpty());
  EXPECT_FALSE(Form.Analysis().Layer().Lines().empty());
}

struct NameRow {
  const char* Chosen;
  PrintCopy Copy;
  const char* File;
};

class CopyFileNames : public testing::TestWithParam<NameRow> {};

TEST_P(CopyFileNames, are_numbered_when_there_are_several) {
  EXPECT_EQ(CopyFileName(GetParam().Chosen, GetParam().Copy), GetParam().File);
}

INSTANTIATE_TEST_SUITE_P(Names, CopyFileNames,
                         testing::Values(NameRow{"/home/ham/beam.pdf", {1, 1}, "/home/ham/beam.pdf"},
                                         NameRow{"/home/ham/beam.pdf", {1, 3}, "/home/ham/beam-1.pdf"},
                                         NameRow{"/home/ham/beam.pdf", {3, 3}, "/home/ham/beam-3.pdf"},
                                         NameRow{"/home/ham.2/beam", {2, 2}, "/home/ham.2/beam-2"},
                                         NameRow{"beam 1.0.PDF", {12, 12}, "beam 1.0-12.PDF"}));

}  // namespace
}  // namespace lobegraph
