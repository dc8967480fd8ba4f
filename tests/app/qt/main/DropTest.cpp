#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

/// A file that is dragged over the real window and dropped there.
class DropTest : public ::testing::Test {
 protected:
  /// @return whether the window took it
  bool Drop(const std::string& path) {
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    const QPoint where(300, 300);
    QDragEnterEvent enter(where, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(&window_.Window, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(where, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_.Window, &drop);
    RealWindow::Settle();
    return true;
  }
  std::string Beam(const std::string& name) { return window_.WritePattern(name, BeamRecord(360, 20)); }

  RealWindow window_;
};

TEST_F(DropTest, APatternIsLoadedAsByGetFile) {
  EXPECT_TRUE(Drop(Beam("dropped.lbg")));
  EXPECT_EQ(window_.Text("txtFileName"), "dropped.lbg");
  EXPECT_EQ(window_.Text("txtReadingsPlotted"), "360");
}

TEST_F(DropTest, NothingElseIsTaken) {
  EXPECT_FALSE(Drop(Beam("dropped.csv")));
  EXPECT_EQ(window_.Text("txtFileName"), "");
}

TEST_F(DropTest, WhileABoxIsOpenNothingIsTaken) {
  const std::string path = Beam("dropped.lbg");
  bool taken = true;
  BoxWatch boxes([&](QDialog& box) {
    taken = Drop(path);
    box.reject();
  });
  window_.Press("cmdGetData");
  EXPECT_EQ(boxes.Seen, 1);
  EXPECT_FALSE(taken);
}

TEST_F(DropTest, ADamagedFileIsRefusedByItsMessage) {
  const std::string path = window_.Home.Folder.File("damaged.lbg");
  std::ofstream(path) << "no pattern\r\n";
  BoxWatch boxes;
  EXPECT_TRUE(Drop(path));
  EXPECT_EQ(boxes.Seen, 1);
}

TEST_F(DropTest, ABoxOfTheWindowTakesNoDropOfItsOwn) {
  for (const ControlRow& row : ControlTable()) EXPECT_FALSE(window_.Widget(row).acceptDrops()) << row.Name;
}

}  // namespace
}  // namespace lobegraph
