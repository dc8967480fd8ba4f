#include <QCheckBox>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QPushButton>

#include "app/qt/WindowFixture.h"
#include "app/qt/boxes/QtDialogs.h"
#include "app/qt/help/HelpWindow.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::TypePath;

class BoxesTest : public testing::Test {
 protected:
  BoxesTest() {
    dialogs_.SetOwner(&owner_);
    owner_.show();
  }
  QWidget owner_;
  QtDialogs dialogs_;
};

QMessageBox& Message(QDialog& box) { return dynamic_cast<QMessageBox&>(box); }

TEST_F(BoxesTest, MessageIsPlainTextWithOneButton) {
  BoxWatch boxes([](QDialog& box) {
    EXPECT_EQ(Message(box).text(), "<b>bold</b>\nsecond line");
    EXPECT_EQ(Message(box).textFormat(), Qt::PlainText);
    EXPECT_EQ(Message(box).standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(Message(box).icon(), QMessageBox::NoIcon);
    EXPECT_EQ(box.windowTitle(), "Lobegraph");
    EXPECT_TRUE(box.isModal());
    Message(box).button(QMessageBox::Ok)->click();
  });
  dialogs_.Show({.Text = "<b>bold</b>\r\nsecond line"});
  EXPECT_EQ(boxes.Seen, 1);
}

TEST_F(BoxesTest, SoundErrorHasItsTitleAndTheExclamationIcon) {
  BoxWatch boxes([](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "DirectSound Error");
    EXPECT_EQ(Message(box).icon(), QMessageBox::Warning);
    box.accept();
  });
  dialogs_.Show({.Text = "No sound", .Title = "DirectSound Error", .Exclamation = true});
  EXPECT_EQ(boxes.Seen, 1);
}

TEST_F(BoxesTest, TheGuideOwnsNoBoxWhichWouldEndWithIt) {
  HelpWindow::Of(&owner_).Show("index.html", "");
  ASSERT_TRUE(QTest::qWaitFor([] { return qobject_cast<HelpWindow*>(QApplication::activeWindow()); }));
  BoxWatch boxes([this](QDialog& box) {
    EXPECT_EQ(box.parentWidget(), &owner_);
    box.accept();
  });
  dialogs_.Show({.Text = "The meter had no fresh value"});
  EXPECT_EQ(boxes.Seen, 1);
}

bool Answered(QtDialogs& dialogs, const std::function<void(QMessageBox&)>& answer) {
  BoxWatch boxes([&](QDialog& box) {
    EXPECT_EQ(Message(box).textFormat(), Qt::PlainText);
    answer(Message(box));
  });
  return dialogs.AskYesNo("Replace it?");
}

TEST_F(BoxesTest, OnlyYesIsYes) {
  EXPECT_TRUE(Answered(dialogs_, [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }));
  EXPECT_FALSE(Answered(dialogs_, [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }));
  EXPECT_FALSE(Answered(dialogs_, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }));
  EXPECT_FALSE(Answered(dialogs_, [](QMessageBox& box) { box.close(); }));
}

TEST_F(BoxesTest, AStrayEnterIsNo) {
  EXPECT_FALSE(Answered(dialogs_, [](QMessageBox& box) {
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
    QTest::keyClick(&box, Qt::Key_Return);
  }));
}

TEST_F(BoxesTest, InputBoxGivesWhatWasTypedAlsoNothing) {
  for (const QString typed : {"DL1XYZ", ""}) {
    BoxWatch boxes([&](QDialog& box) {
      EXPECT_EQ(box.windowTitle(), " ");
      EXPECT_EQ(dynamic_cast<QInputDialog&>(box).labelText(), "Enter your call sign:");
      EXPECT_EQ(box.findChild<QLineEdit*>()->text(), "");
      QTest::keyClicks(box.findChild<QLineEdit*>(), typed);
      QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs_.InputBox("Enter your call sign:", " "), typed.toStdString());
  }
}

TEST_F(BoxesTest, CancelledInputBoxGivesNone) {
  BoxWatch boxes([](QDialog& box) { box.reject(); });
  EXPECT_EQ(dialogs_.InputBox("Name", ""), std::nullopt);
  EXPECT_FALSE(dialogs_.InputBoxWithTick("Name", "", "Keep"));
}

TEST_F(BoxesTest, AnInputBoxCanHaveABoxToTickBetweenLineAndButtons) {
  for (const bool ticked : {false, true}) {
    BoxWatch boxes([&](QDialog& box) {
      auto& tick = *box.findChild<QCheckBox*>();
      EXPECT_EQ(tick.text(), "&Keep");
      EXPECT_FALSE(tick.isChecked());
      auto& line = *box.findChild<QLineEdit*>();
      EXPECT_EQ(box.focusWidget(), &line) << "what is typed goes into the line";
      EXPECT_GT(tick.y(), line.y());
      EXPECT_LT(tick.y(), box.findChild<QDialogButtonBox*>()->y());
      QTest::keyClicks(&line, "DL1XYZ");
      if (ticked) tick.click();
      QTest::keyClick(&box, Qt::Key_Return);
    });
    const auto answer = dialogs_.InputBoxWithTick("Name", "", "&Keep");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->Text, "DL1XYZ");
    EXPECT_EQ(answer->Ticked, ticked);
  }
}

TEST_F(BoxesTest, FileDialogsTakeANameThatDoesNotExist) {
  const TemporaryFolder folder;
  const std::string path = folder.File("not there yet");
  BoxWatch boxes([&](QDialog& box) { TypePath(box, path); });
  EXPECT_EQ(dialogs_.OpenFile(folder.Path().string() + "/"), path);
  EXPECT_EQ(dialogs_.SaveFile(folder.Path().string() + "/"), path);
  EXPECT_EQ(boxes.Seen, 2);
}

TEST_F(BoxesTest, FileDialogsStartInTheFolderWithBothFilters) {
  const TemporaryFolder folder;
  std::ofstream(folder.File("beam.lbg")) << "0";
  BoxWatch boxes([&](QDialog& box) {
    auto& dialog = dynamic_cast<QFileDialog&>(box);
    EXPECT_EQ(dialog.directory().path().toStdString(), folder.Path().string());
    EXPECT_EQ(dialog.nameFilters(), QStringList({"Lobegraph Files (*.lbg)", "All Files (*.*)"}));
    EXPECT_EQ(dialog.selectedNameFilter(), "Lobegraph Files (*.lbg)");
    dialog.reject();
  });
  EXPECT_EQ(dialogs_.OpenFile(folder.Path().string() + "/"), std::nullopt);
  EXPECT_EQ(dialogs_.SaveFile(folder.Path().string() + "/"), std::nullopt);
  EXPECT_EQ(boxes.Seen, 2);
}

TEST_F(BoxesTest, SavingOverAFileIsNotAskedByTheDialogItself) {
  const TemporaryFolder folder;
  const std::string path = folder.File("old.lbg");
  std::ofstream(path) << "0";
  BoxWatch boxes([&](QDialog& box) { TypePath(box, path); });
  EXPECT_EQ(dialogs_.SaveFile(folder.Path().string() + "/"), path);
  EXPECT_EQ(boxes.Seen, 1) << "the program asks, with its own words";
}

TEST_F(BoxesTest, OpenTellsWhetherABoxIsOpen) {
  EXPECT_FALSE(dialogs_.IsOpen());
  BoxWatch boxes([&](QDialog& box) {
    EXPECT_TRUE(dialogs_.IsOpen());
    box.accept();
  });
  dialogs_.ShowText("hello");
  EXPECT_FALSE(dialogs_.IsOpen());
}

TEST_F(BoxesTest, CloseAllCancelsTheOpenBoxAndThoseThatWouldFollow) {
  BoxWatch boxes([&](QDialog&) { dialogs_.CloseAll(); });
  EXPECT_FALSE(dialogs_.AskYesNo("Replace it?"));
  dialogs_.ShowText("never seen");
  EXPECT_EQ(dialogs_.InputBox("Name", ""), std::nullopt);
  EXPECT_EQ(boxes.Seen, 1);
}

}  // namespace
}  // namespace lobegraph
