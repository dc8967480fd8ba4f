#include "app/qt/main/MainMenu.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QMenu>
#include <QMimeData>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

class MainMenuTest : public testing::Test {
 protected:
  QAction& Action(const char* name) {
    auto* action = window_.Window.findChild<QAction*>(name);
    if (action == nullptr) throw std::logic_error(std::string("no such entry: ") + name);
    return *action;
  }
  /// As a hand opens it; closed again at once.
  void Open(QMenu& menu) {
    menu.popup(QPoint(0, 0));
    RealWindow::Settle();
    menu.close();
  }
  QMenu& MenuOf(QAction& action) {
    for (QAction* title : window_.Find<QMenuBar>("MainMenu").actions())
      if (title->menu()->actions().contains(&action)) return *title->menu();
    throw std::logic_error("in no menu");
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window_.Window,
                    key, modifiers);
    RealWindow::Settle();
  }
  FiguresView& Figures() { return *window_.Window.findChild<FiguresView*>(); }

  RealWindow window_;
};

TEST_F(MainMenuTest, AnEntryPressesItsButton) {
  Action("cmdPolarizationAction").trigger();
  EXPECT_EQ(window_.Find<QAbstractButton>("cmdPolarization").text(), "Vertic&al");
  Action("chk180Action").trigger();
  EXPECT_TRUE(window_.Find<QCheckBox>("chk180").isChecked());
}

TEST_F(MainMenuTest, WhileThePanelIsHiddenKeysAndMenuStillReachIt) {
  window_.LoadBeam();
  window_.Press("cmdShrink");
  window_.MarkDrawing();
  Action("cmdLogLinAction").trigger();
  EXPECT_TRUE(window_.DrawnSinceMark());
  BoxWatch boxes([](QDialog& box) {
    EXPECT_NE(qobject_cast<QFileDialog*>(&box), nullptr);
    box.reject();
  });
  Key(Qt::Key_S, Qt::ControlModifier);
  RealWindow::Activate(window_.Window);
  Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(boxes.Seen, 2);
}

TEST_F(MainMenuTest, AnOpenMenuShowsWhatIsPossibleAndWhatIsOn) {
  QAction& halt = Action("cmdHaltInputAction");
  QAction& trigger = Action("cmdTriggerAction");
  QAction& inDb = Action("chkPlotInDBAction");
  QMenu& measure = MenuOf(halt);
  measure.popup(QPoint(0, 0));
  EXPECT_FALSE(halt.isEnabled());
  EXPECT_FALSE(trigger.isVisible());
  measure.close();
  EXPECT_TRUE(halt.isEnabled()) << "its keys ask anew";
  Open(MenuOf(inDb));
  EXPECT_TRUE(inDb.isChecked());
  window_.Press("chkPlotInDB");
  Open(MenuOf(inDb));
  EXPECT_FALSE(inDb.isChecked());
}

TEST_F(MainMenuTest, WhatIsNotPossibleDoesNothing) {
  window_.Find<QWidget>("cmdSaveData").setEnabled(false);
  BoxWatch boxes;
  Action("cmdSaveDataAction").trigger();
  EXPECT_EQ(boxes.Seen, 0);
}

TEST_F(MainMenuTest, F10LeadsIntoTheMenu) {
  window_.Find<QWidget>("cmdCollectData").setFocus();
  Key(Qt::Key_F10);
  auto& menu = window_.Find<QMenuBar>("MainMenu");
  EXPECT_EQ(menu.activeAction(), menu.actions().first());
}

TEST_F(MainMenuTest, F11IsTheWholeScreenAndBack) {
  Key(Qt::Key_F11);
  EXPECT_TRUE(window_.Window.isFullScreen());
  Key(Qt::Key_F11);
  EXPECT_FALSE(window_.Window.isFullScreen());
  EXPECT_FALSE(window_.Window.isMaximized());
  window_.Window.showMaximized();
  Key(Qt::Key_F11);
  Key(Qt::Key_F11);
  EXPECT_TRUE(window_.Window.isMaximized()) << "as it was before";
}

TEST_F(MainMenuTest, F4ShowsTheFiguresInAWindowOfTheirOwnWhereThereIsNoRoom) {
  window_.LoadBeam();
  Key(Qt::Key_F4);
  EXPECT_TRUE(Figures().isVisible());
  EXPECT_TRUE(Figures().isWindow());
  EXPECT_EQ(window_.Inside(), QSize(758, 560)) << "the window keeps its size";
  Figures().close();
  EXPECT_FALSE(Figures().isVisible());
  RealWindow::Activate(window_.Window);
  Key(Qt::Key_F4);
  EXPECT_TRUE(Figures().isVisible()) << "closing it was switching it off";
}

TEST_F(MainMenuTest, WithRoomTheFiguresStandBesideTheControlsAndThePlotKeepsItsSize) {
  window_.LoadBeam();
  window_.ResizeInside(QSize(1200, 560));
  auto& plot = *window_.Window.findChild<PlotWidget*>();
  const qreal before = plot.PixelsPerUnit();
  Key(Qt::Key_F4);
  EXPECT_FALSE(Figures().isWindow());
  EXPECT_EQ(Figures().geometry().right() + 1, 1200 - 257);
  EXPECT_EQ(plot.PixelsPerUnit(), before);
  EXPECT_EQ(plot.width(), Figures().x());
  window_.ResizeInside(QSize(758, 560));
  EXPECT_TRUE(Figures().isWindow()) << "no room any more";
  Key(Qt::Key_F4);
}

TEST_F(MainMenuTest, TheFiguresFollowThePattern) {
  Key(Qt::Key_F4);
  EXPECT_TRUE(Figures().Text().contains("Beamwidth\t-\n"));
  window_.LoadBeam();
  const QString beam = Figures().Text();
  EXPECT_FALSE(beam.contains("Beamwidth\t-\n"));
  EXPECT_TRUE(beam.contains("Front to back\t")) << beam.toStdString();
  window_.Press("chk180");
  EXPECT_NE(Figures().Text(), beam);
}

TEST_F(MainMenuTest, CopiedFiguresAreText) {
  window_.LoadBeam();
  Action("Copy figures Action").trigger();
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Beamwidth\t"));
  EXPECT_EQ(window_.Caption("lblHint"), "The figures are in the clipboard.");
}

TEST_F(MainMenuTest, ACopiedPictureIsABitmapAndADrawing) {
  window_.LoadBeam();
  Action("Copy picture Action").trigger();
  const QMimeData* data = QApplication::clipboard()->mimeData();
  ASSERT_TRUE(data->hasImage());
  EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), QSize(1002, 1120));
  EXPECT_TRUE(data->data("image/svg+xml").contains(">Three elements</text>"));
  EXPECT_EQ(window_.Caption("lblHint"), "The picture is in the clipboard.");
}

TEST_F(MainMenuTest, CopyInABoxIsTheBoxesOwn) {
  window_.LoadBeam("Words of mine");
  auto& box = window_.Find<QLineEdit>("txtDescription");
  box.setFocus();
  box.selectAll();
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "Words of mine");
}

TEST_F(MainMenuTest, APictureIsSavedUnderTheNameAndKindChosen) {
  window_.LoadBeam();
  BoxWatch boxes([&](QDialog& box) {
    auto& dialog = dynamic_cast<QFileDialog&>(box);
    EXPECT_TRUE(dialog.selectedFiles().first().endsWith("/beam.png"));
    dialog.selectNameFilter(dialog.nameFilters()[2]);
    test::TypePath(box, window_.Home.Folder.File("picture"));
  });
  Action("Save picture Action").trigger();
  const QImage saved(QString::fromStdString(window_.Home.Folder.File("picture.png")));
  EXPECT_EQ(saved.size(), QSize(4 * 501, 4 * 560));
}

TEST_F(MainMenuTest, AboutTellsVersionAndLicences) {
  BoxWatch boxes;
  Action("About Lobegraph Action").trigger();
  ASSERT_EQ(boxes.Texts.size(), 1U);
  EXPECT_NE(boxes.Texts[0].find("Lobegraph V2.1.0"), std::string::npos);
  EXPECT_NE(boxes.Texts[0].find("GNU General Public License, version 3"), std::string::npos);
}

TEST_F(MainMenuTest, TheKeysOfThePlotReadThePatternOff) {
  window_.LoadBeam();
  auto& plot = window_.Find<QWidget>("Plot");
  plot.setFocus();
  EXPECT_TRUE(window_.Caption("lblHint").starts_with("Bearing 20: 0.0 dB, reading 21 of 360."))
      << window_.Caption("lblHint");
  QTest::keyClick(&plot, Qt::Key_Right);
  EXPECT_TRUE(window_.Caption("lblHint").starts_with("Bearing 21: "));
  EXPECT_EQ(plot.accessibleDescription().toStdString(), window_.Caption("lblHint"));
  QTest::keyClick(&plot, Qt::Key_PageUp);
  EXPECT_TRUE(window_.Caption("lblHint").starts_with("Bearing 11: "));
  window_.Find<QWidget>("cmdCollectData").setFocus();
  EXPECT_FALSE(window_.Caption("lblHint").starts_with("Bearing"));
}

TEST_F(MainMenuTest, ThePointerReadsThePatternOff) {
  window_.LoadBeam();
  auto& plot = window_.Find<QWidget>("Plot");
  const std::string before = window_.Caption("lblHint");
  QTest::mouseMove(&plot, QPoint(250, 100));
  RealWindow::Settle();
  EXPECT_TRUE(window_.Caption("lblHint").starts_with("Bearing 0: ")) << window_.Caption("lblHint");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&plot, &leave);
  EXPECT_EQ(window_.Caption("lblHint"), before);
}

}  // namespace
}  // namespace lobegraph
