#include "app/qt/editor/frmEditLbgWindow.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QHeaderView>

#include "app/qt/WindowFixture.h"

namespace lobegraph {
namespace {

using test::BoxWatch;
using test::RealWindow;

constexpr int kNo = 0;
constexpr int kValue = 1;
constexpr int kPosn = 2;

/// The editor beside the real window, operated as a person does.
class frmEditLbgWindowTest : public testing::Test {
 protected:
  frmEditLbgWindowTest() {
    window_.Press("chkEditor");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Editor()));
  }
  QWidget& Editor() { return window_.Find<QWidget>("frmEditLbg"); }
  EditorTable& Table() { return window_.Find<EditorTable>("grdReadings"); }
  std::string Shown(int row, int column = kValue) {
    return Table().model()->index(row - 1, column).data().toString().toStdString();
  }
  void Click(int row, int column = kValue) {
    const QModelIndex cell = Table().model()->index(row - 1, column);
    Table().scrollTo(cell);
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, Table().visualRect(cell).center());
  }
  /// Selects values from a row to another, with Shift.
  void Select(int first, int last) {
    Click(first);
    for (int row = first; row < last; ++row) QTest::keyClick(&Table(), Qt::Key_Down, Qt::ShiftModifier);
  }
  /// Keys go to whatever has the focus, the open cell or the table.
  void Type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(Focus(), letter.toLatin1());
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(Focus(), key, modifiers);
    RealWindow::Settle();
  }
  QWidget* Focus() {
    QWidget* editor = Table().viewport()->findChild<QLineEdit*>();
    return editor != nullptr ? editor : static_cast<QWidget*>(&Table());
  }
  int CurrentRow() { return Table().currentIndex().row() + 1; }
  static QString Clipboard() { return QApplication::clipboard()->text(); }
  static void SetClipboard(const QString& text) { QApplication::clipboard()->setText(text); }

  RealWindow window_;
};

TEST_F(frmEditLbgWindowTest, HasThreeColumnsOfTheirWidthsAnd360Rows) {
  EXPECT_EQ(Editor().windowTitle(), "Lbg editor");
  EXPECT_FALSE(Editor().isModal());
  ASSERT_EQ(Table().model()->rowCount(), 360);
  const std::pair<const char*, int> columns[] = {{"No.", 525 / 15}, {"Value", 900 / 15}, {"Posn", 960 / 15}};
  int column = 0;
  for (const auto& [header, width] : columns) {
    EXPECT_EQ(Table().model()->headerData(column, Qt::Horizontal).toString(), header);
    EXPECT_EQ(Table().columnWidth(column++), width) << header;
  }
  EXPECT_EQ(Shown(1, kNo) + Shown(1, kValue) + Shown(1, kPosn), "100");
  EXPECT_EQ(Shown(360, kNo), "360");
}

TEST_F(frmEditLbgWindowTest, ButtonsHaveTheirCaptions) {
  const std::pair<const char*, const char*> buttons[] = {{"cmdGetDataFromPlot", "Get values from the plot"},
                                                         {"cmdGetDataFromFile", "Get values from a CSV file"},
                                                         {"cmdInsert", "Insert a row"},
                                                         {"cmdDelete", "Delete a row"},
                                                         {"cmdUpdate", "Update the plot"},
                                                         {"Command1", "Clear all values"}};
  for (const auto& [name, caption] : buttons)
    EXPECT_EQ(window_.Find<QAbstractButton>(name).text(), caption) << name;
}

TEST_F(frmEditLbgWindowTest, TypingReplacesTheValueAndEnterGoesDownOneRow) {
  Click(5);
  Type("123.456");
  Key(Qt::Key_Return);
  EXPECT_EQ(CurrentRow(), 6);
  Type("77");
  Key(Qt::Key_Enter);
  EXPECT_EQ(CurrentRow(), 7);
  EXPECT_EQ(Shown(5), "123.46");
  EXPECT_EQ(Shown(6), "77");
  EXPECT_EQ(Shown(6, kPosn), "300.00");
}

TEST_F(frmEditLbgWindowTest, EnterGoesDownWithoutEditingAndStaysAtTheEnd) {
  Click(359);
  Key(Qt::Key_Return);
  EXPECT_EQ(CurrentRow(), 360);
  Key(Qt::Key_Return);
  EXPECT_EQ(CurrentRow(), 360);
  EXPECT_EQ(Shown(360), "0");
}

TEST_F(frmEditLbgWindowTest, EscapeKeepsTheValueAndTheRow) {
  Click(3);
  Type("9");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(3), "0");
  EXPECT_EQ(CurrentRow(), 3);
}

TEST_F(frmEditLbgWindowTest, NumbersAndPositionsCannotBeTypedOver) {
  for (const int column : {kNo, kPosn}) {
    Click(2, column);
    Type("7");
    Key(Qt::Key_Return);
  }
  EXPECT_EQ(Shown(2, kNo), "2");
  EXPECT_EQ(Shown(2, kPosn), "0");
}

TEST_F(frmEditLbgWindowTest, AnEditedCellShowsItsFullText) {
  Click(1);
  Type("0.123456");
  Key(Qt::Key_Return);
  EXPECT_EQ(Shown(1), ".12");
  Click(1);
  Table().edit(Table().currentIndex());
  EXPECT_EQ(dynamic_cast<QLineEdit&>(*Focus()).text(), "0.123456");
  Key(Qt::Key_Escape);
}

TEST_F(frmEditLbgWindowTest, AColumnOfASpreadsheetIsPastedFromTheSelectedRowOn) {
  SetClipboard("1.5\n2.25\n\"3\"\n");
  Click(10);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Shown(9) + " " + Shown(10) + " " + Shown(11) + " " + Shown(12) + " " + Shown(13),
            "0 1.5 2.25 3 0");
  EXPECT_EQ(window_.Caption("lblStatus"), "3 values pasted");
}

TEST_F(frmEditLbgWindowTest, ASelectedColumnIsCopiedInFull) {
  SetClipboard("1.234567\n2\n3\n");
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  SetClipboard("");
  Select(1, 2);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "1.234567\n2\n");
}

TEST_F(frmEditLbgWindowTest, ACopiedColumnPastesElsewhere) {
  SetClipboard("4\n5\n");
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  Select(1, 2);
  Key(Qt::Key_C, Qt::ControlModifier);
  Click(100);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Shown(100) + Shown(101), "45");
}

TEST_F(frmEditLbgWindowTest, DeleteEmptiesTheSelectedSlots) {
  SetClipboard("1\n2\n3\n4\n");
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  Select(2, 3);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Shown(1) + Shown(2) + Shown(3) + Shown(4), "1004");
}

TEST_F(frmEditLbgWindowTest, InsertAndDeleteActOnTheRowOfTheCursor) {
  SetClipboard("1\n2\n3\n");
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  Click(2);
  window_.Press("cmdInsert");
  EXPECT_EQ(Shown(1) + Shown(2) + Shown(3) + Shown(4), "1023");
  window_.Press("cmdDelete");
  window_.Press("cmdDelete");
  EXPECT_EQ(Shown(1) + Shown(2) + Shown(3), "130");
}

TEST_F(frmEditLbgWindowTest, AValueThatIsNoNumberIsTakenToTheUser) {
  SetClipboard("900\nabc\n800\n");
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  Click(300);
  BoxWatch boxes;
  window_.Press("cmdUpdate");
  ASSERT_THAT(boxes.Texts, testing::ElementsAre(testing::HasSubstr("Error 13 (Type mismatch)")));
  EXPECT_EQ(CurrentRow(), 2);
  EXPECT_TRUE(Table().viewport()->rect().contains(Table().visualRect(Table().currentIndex())));
}

TEST_F(frmEditLbgWindowTest, UpdateTakesAValueThatIsStillBeingTyped) {
  SetClipboard(QString("500\n").repeated(90));
  Click(1);
  Key(Qt::Key_V, Qt::ControlModifier);
  Click(91);
  Type("900");
  auto& button = window_.Find<QAbstractButton>("cmdUpdate");
  button.setFocus(Qt::MouseFocusReason);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(Shown(91), "900");
  EXPECT_EQ(window_.Text("txtReadingsPlotted"), "91");
}

TEST_F(frmEditLbgWindowTest, ImportsTheFileThatIsChosen) {
  std::ofstream(window_.Home.Folder.File("level.csv")) << "1,2,3";
  BoxWatch typing([&](QDialog& box) { test::TypePath(box, window_.Home.Folder.File("level")); });
  window_.Press("cmdGetDataFromFile");
  EXPECT_EQ(Shown(3), "3");
  EXPECT_EQ(Shown(3, kPosn), "240.00");
  EXPECT_EQ(window_.Caption("lblStatus"), "3 values read, 0 were not numbers");
  EXPECT_EQ(window_.Find<QLabel>("lblStatus").accessibleDescription(),
            window_.Find<QLabel>("lblStatus").text());
}

TEST_F(frmEditLbgWindowTest, ClosingItUnticksTheBoxAndTheBoxClosesIt) {
  auto& box = window_.Find<QAbstractButton>("chkEditor");
  Editor().close();
  EXPECT_FALSE(box.isChecked());
  box.click();
  EXPECT_TRUE(Editor().isVisible());
  box.click();
  EXPECT_FALSE(Editor().isVisible());
}

}  // namespace
}  // namespace lobegraph
