#include <gmock/gmock.h>

#include <sys/stat.h>
#include <QAbstractPrintDialog>
#include <QFileInfo>
#include <QPrinter>
#include <QSpinBox>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;
using testing::ElementsAre;
using testing::IsEmpty;

/// The user in the print dialog, where only a file can be printed to, and in the boxes around it.
class PrintingTest : public testing::Test {
 protected:
  /// Presses Print and fills the dialog in; message boxes are answered with Yes or OK.
  void Print(const std::string& file, int copies = 1) {
    BoxWatch boxes([&](QDialog& box) {
      if (qobject_cast<QAbstractPrintDialog*>(&box) == nullptr)
        return Answer(dynamic_cast<QMessageBox&>(box));
      EXPECT_EQ(box.findChild<QSpinBox*>("copies")->value(), 1);
      box.findChild<QSpinBox*>("copies")->setValue(copies);
      box.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(file));
      box.accept();
    });
    window_.Press("cmdPrint");
  }
  void Answer(QMessageBox& box) {
    if (auto* yes = box.button(QMessageBox::Yes)) return yes->click();
    messages_.push_back(box.text().toStdString());
    box.accept();
  }
  std::string File(const std::string& name) const { return window_.Home.Folder.File(name); }
  static bool IsThere(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).size() > 1000;
  }

  RealWindow window_;
  std::vector<std::string> messages_;
};

TEST_F(PrintingTest, OneCopyGoesIntoTheFileThatWasNamed) {
  Print(File("window.pdf"));
  EXPECT_TRUE(IsThere(File("window.pdf")));
  EXPECT_EQ(window_.Caption("lblHint"), "Printed to " + File("window.pdf"));
  EXPECT_THAT(messages_, IsEmpty());
}

TEST_F(PrintingTest, SeveralCopiesGoIntoNumberedFilesAndTheDialogBeginsAgainWithTheNameChosen) {
  Print(File("window.pdf"), 3);
  for (const char* name : {"window-1.pdf", "window-2.pdf", "window-3.pdf"}) EXPECT_TRUE(IsThere(File(name)));
  EXPECT_FALSE(IsThere(File("window.pdf")));
  BoxWatch boxes([&](QDialog& box) {
    EXPECT_EQ(box.findChild<QLineEdit*>("filename")->text().toStdString(), File("window.pdf"));
    box.reject();
  });
  window_.Press("cmdPrint");
  EXPECT_EQ(boxes.Seen, 1);
}

TEST_F(PrintingTest, ACancelledDialogPrintsNothing) {
  window_.Find<QLabel>("lblHint").setText("before");
  BoxWatch boxes([&](QDialog& box) {
    box.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(File("window.pdf")));
    box.reject();
  });
  window_.Press("cmdPrint");
  EXPECT_EQ(boxes.Seen, 1);
  EXPECT_FALSE(IsThere(File("window.pdf")));
  EXPECT_EQ(window_.Caption("lblHint"), "before");
}

TEST_F(PrintingTest, AFullDiskIsErrorPrinter) {
  Print("/dev/full");
  EXPECT_THAT(messages_, ElementsAre("LBG014 Printing error not presently handled, Code=482"));
}

TEST_F(PrintingTest, ACopyThatIsThereIsReplacedByConsentOnly) {
  for (const char* name : {"window-1.pdf", "window-2.pdf"}) std::ofstream(File(name)) << "mine";
  std::string asked;
  BoxWatch boxes([&](QDialog& box) {
    if (auto* question = qobject_cast<QMessageBox*>(&box)) {
      asked = question->text().toStdString();
      return question->button(QMessageBox::No)->click();
    }
    box.findChild<QSpinBox*>("copies")->setValue(3);
    box.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(File("window.pdf")));
    box.accept();
  });
  window_.Press("cmdPrint");
  EXPECT_EQ(asked, "window-1.pdf already exists (2 of 3 copies)\nDo you wish to replace what is there?");
  EXPECT_EQ(QFileInfo(QString::fromStdString(File("window-1.pdf"))).size(), 4);
  EXPECT_FALSE(IsThere(File("window-3.pdf")));
}

TEST_F(PrintingTest, APipeIsNotOpenedAndTheDialogStays) {
  ASSERT_EQ(mkfifo(File("pipe.pdf").c_str(), 0600), 0);
  std::string told;
  BoxWatch boxes([&](QDialog& box) {
    if (auto* message = qobject_cast<QMessageBox*>(&box)) {
      told = message->text().toStdString();
      return box.accept();
    }
    box.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(File("pipe.pdf")));
    QTimer::singleShot(0, &box, [&box] {  // a box is answered only when the one before has returned
      box.accept();
      EXPECT_TRUE(box.isVisible());
      box.reject();
    });
  });
  window_.Press("cmdPrint");
  EXPECT_EQ(told, "This name belongs to a pipe: a document needs a file of its own.");
}

TEST_F(PrintingTest, TheRightsOfAFileThatIsReplacedStay) {
  std::ofstream(File("window.pdf")) << "old";
  std::filesystem::permissions(File("window.pdf"), std::filesystem::perms(0600));
  Print(File("window.pdf"));
  EXPECT_TRUE(IsThere(File("window.pdf")));
  EXPECT_EQ(std::filesystem::status(File("window.pdf")).permissions(), std::filesystem::perms(0600));
}

TEST_F(PrintingTest, TheDialogIsABoxOfTheWindowSoNothingIsDrawnAnew) {
  window_.LoadBeam();
  window_.MarkDrawing();
  Print(File("window.pdf"));
  RealWindow::Activate(window_.Window);
  EXPECT_FALSE(window_.DrawnSinceMark());
}

}  // namespace
}  // namespace lobegraph
