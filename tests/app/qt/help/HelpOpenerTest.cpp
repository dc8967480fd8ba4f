// F1 in each window, with and without a viewer for the compiled guide.
#include "app/qt/help/HelpOpener.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/qt/help/HelpWindow.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

HelpWindow* OpenHelp() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* help = qobject_cast<HelpWindow*>(window); help != nullptr && help->isVisible()) return help;
  return nullptr;
}

QTextBrowser& PageOf(const HelpWindow& help) { return *help.findChild<QTextBrowser*>("txtPage"); }

QString ShownPage() {
  EXPECT_TRUE(QTest::qWaitFor([] { return OpenHelp() != nullptr; }));
  HelpWindow* help = OpenHelp();
  return help == nullptr ? "" : PageOf(*help).source().toString().remove(kHelpFolder);
}

/// A desktop of scripts: what they are asked stands in a file.
class HelpOpenerTest : public ::testing::Test {
 protected:
  HelpOpenerTest() { qputenv("PATH", folder_.Path().c_str()); }
  ~HelpOpenerTest() override {
    qputenv("PATH", path_);
    delete opener_;
  }

  void Begin(bool guide = true) {
    if (guide) std::ofstream(Guide()) << "guide";
    opener_ = new HelpOpener(*qApp, QString::fromStdString(Guide()));
  }
  std::string Guide() const { return (fs::path(folder_.Path()) / "LBGHelp.chm").string(); }
  std::string Asked() const { return (fs::path(folder_.Path()) / "asked").string(); }

  void Script(const std::string& name, const std::string& body) const {
    const fs::path path = fs::path(folder_.Path()) / name;
    std::ofstream(path) << "#!/bin/sh\n" << body << "\n";
    fs::permissions(path, fs::perms::owner_all);
  }
  void DesktopHas(const std::string& viewer, const std::string& program) const {
    Script("xdg-mime", "echo " + viewer);
    Script(program,
           "echo \"${0##*/} $*\" >'" + Asked() + ".new'; /bin/mv '" + Asked() + ".new' '" + Asked() + "'");
  }
  std::string WhatWasAsked() const {
    EXPECT_TRUE(QTest::qWaitFor([this] { return fs::exists(Asked()); }));
    std::ifstream file(Asked());
    std::string line;
    std::getline(file, line);
    return line;
  }

  void PressF1In(const char* name) {
    window_.setObjectName(name);
    window_.show();
    QTest::keyClick(&window_, Qt::Key_F1);
  }

  TemporaryFolder folder_;

 private:
  QByteArray path_ = qgetenv("PATH");
  HelpOpener* opener_ = nullptr;
  QWidget window_;
};

TEST_F(HelpOpenerTest, F1InEachWindowOpensThePageAboutIt) {
  Begin();
  for (const auto& [name, page] : {std::pair{"Form1", "window.html"},
                                   {"frmSettings", "settings.html"},
                                   {"frmChooseInput", "chooser.html"},
                                   {"frmdBMeter", "meterwindow.html"},
                                   {"frmEditLbg", "editor.html"}}) {
    QWidget window;
    window.setObjectName(name);
    QLineEdit box(&window);
    window.show();
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(ShownPage(), page) << name;
  }
}

TEST_F(HelpOpenerTest, F1InAMessageBoxOpensItsMessage) {
  Begin();
  QWidget main;
  main.setObjectName("Form1");
  QMessageBox box(&main);
  box.setText("LBG003 No data to save");
  box.show();
  QTest::keyClick(&box, Qt::Key_F1);
  EXPECT_EQ(ShownPage(), "messages.html#LBG003");
}

TEST_F(HelpOpenerTest, F1InAFileDialogTellsAboutFiles) {
  Begin();
  QFileDialog box;
  box.setOption(QFileDialog::DontUseNativeDialog);
  box.show();
  QTest::keyClick(&box, Qt::Key_F1);
  EXPECT_EQ(ShownPage(), "files.html");
}

TEST_F(HelpOpenerTest, AWindowInAWindowWithoutAPageOpensThatOfItsOwner) {
  Begin();
  QWidget main;
  main.setObjectName("Form1");
  QDialog box(&main);
  EXPECT_EQ(HelpOpener::PlaceOf(box).Page, "window.html");
  QWidget stranger;
  EXPECT_EQ(HelpOpener::PlaceOf(stranger).Page, kFirstHelpPage);
}

TEST_F(HelpOpenerTest, WhileABoxKeepsTheOthersWaitingTheGuideCanBeRead) {
  Begin();
  QDialog box;
  box.setObjectName("frmSettings");
  bool usable = false;
  QTimer::singleShot(0, [&] {
    QTest::keyClick(&box, Qt::Key_F1);
    EXPECT_EQ(ShownPage(), "settings.html");
    HelpWindow* help = OpenHelp();
    usable = help != nullptr && help->parentWidget() == &box;
    box.accept();
  });
  box.exec();
  EXPECT_TRUE(usable);
}

TEST_F(HelpOpenerTest, ADesktopWithAViewerShowsTheCompiledGuideAtThePage) {
  DesktopHas("kchmviewer.desktop", "kchmviewer");
  Begin();
  PressF1In("frmEditLbg");
  EXPECT_EQ(WhatWasAsked(), "kchmviewer -showPage editor.html " + Guide());
  EXPECT_EQ(OpenHelp(), nullptr);
}

TEST_F(HelpOpenerTest, AViewerThatCannotBeStartedGivesWayToTheOwnWindow) {
  Script("xdg-mime", "echo kchmviewer.desktop");
  Begin();
  PressF1In("Form1");
  EXPECT_EQ(ShownPage(), "window.html");
}

TEST_F(HelpOpenerTest, AViewerThatCannotBeToldThePageGivesWayToTheOwnWindow) {
  DesktopHas("xchm.desktop", "xchm");
  Begin();
  PressF1In("Form1");
  EXPECT_EQ(ShownPage(), "window.html");
  EXPECT_FALSE(fs::exists(Asked()));
}

TEST_F(HelpOpenerTest, ADesktopThatNamesNoViewerGetsTheOwnWindow) {
  Script("xdg-mime", "exit 0");
  Begin();
  PressF1In("Form1");
  EXPECT_EQ(ShownPage(), "window.html");
}

TEST_F(HelpOpenerTest, WithoutTheCompiledGuideTheOwnWindowOpens) {
  DesktopHas("kchmviewer.desktop", "kchmviewer");
  Begin(false);
  PressF1In("Form1");
  EXPECT_EQ(ShownPage(), "window.html");
  EXPECT_FALSE(fs::exists(Asked()));
}

TEST_F(HelpOpenerTest, AnotherF1ShowsTheNextPageInTheSameWindow) {
  Begin();
  QWidget main;
  main.setObjectName("Form1");
  QWidget editor(&main, Qt::Window);
  editor.setObjectName("frmEditLbg");
  main.show();
  QTest::keyClick(&main, Qt::Key_F1);
  EXPECT_EQ(ShownPage(), "window.html");
  HelpWindow* first = OpenHelp();
  QTest::keyClick(&editor, Qt::Key_F1);
  EXPECT_TRUE(QTest::qWaitFor([] { return ShownPage() == "editor.html"; }));
  EXPECT_EQ(OpenHelp(), first);
}

TEST_F(HelpOpenerTest, LinksAndButtonsLeadThroughTheGuide) {
  Begin();
  QWidget main;
  HelpWindow& help = HelpWindow::Of(&main);
  help.Show("window.html", "cmdCollectData");
  QTextBrowser& page = PageOf(help);
  EXPECT_TRUE(page.toPlainText().contains("Takes 360 readings"));
  help.findChild<QPushButton*>("cmdContents")->click();
  EXPECT_EQ(ShownPage(), "index.html");
  EXPECT_EQ(help.windowTitle(), "Lobegraph - Lobegraph Help");
  help.findChild<QPushButton*>("cmdBack")->click();
  EXPECT_EQ(ShownPage(), "window.html#cmdCollectData");
  help.findChild<QPushButton*>("cmdForward")->click();
  EXPECT_EQ(ShownPage(), "index.html");
}

TEST_F(HelpOpenerTest, EveryPageOfAWindowIsInTheProgram) {
  for (const std::string_view page : HelpPages())
    EXPECT_TRUE(QFile::exists(":/help/" + QString::fromUtf8(page.data(), qsizetype(page.size()))));
}

}  // namespace
}  // namespace lobegraph
