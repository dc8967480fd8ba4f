#include "app/qt/parts/ElidingLabel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

namespace lobegraph {
namespace {

std::string ToolTipOf(ElidingLabel& label) {
  label.show();
  QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label.mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&label, &help);
  const std::string text = QToolTip::text().toStdString();
  QToolTip::hideText();
  return text;
}

TEST(ElidingLabelTest, ALongTextEndsInDotsAndTheToolTipTellsItWhole) {
  ElidingLabel label;
  label.setTextFormat(Qt::PlainText);
  label.resize(100, 20);
  label.setText("short");
  EXPECT_EQ(label.ShownText(), "short");
  label.setText("<b>R&D</b> a description of more words than there is room for");
  EXPECT_TRUE(label.ShownText().endsWith(QChar(0x2026)));
  EXPECT_LE(label.fontMetrics().horizontalAdvance(label.ShownText()), 100);
  EXPECT_EQ(ToolTipOf(label),
            "<p>&lt;b&gt;R&amp;D&lt;/b&gt; a description of more words than there is room for</p>");
  label.setToolTip("Where the level comes from");
  EXPECT_EQ(
      ToolTipOf(label),
      "<p>&lt;b&gt;R&amp;D&lt;/b&gt; a description of more words than there is room for<br>Where the level "
      "comes from</p>");
}

TEST(ElidingLabelTest, APlaceholderIsSeenWhileThereIsNoText) {
  ElidingLabel label;
  label.SetPlaceholder("(no operator)");
  label.resize(100, 20);
  const QImage blank = label.grab().toImage();
  label.setText(" ");
  EXPECT_EQ(label.ShownText(), "(no operator)");
  ElidingLabel without;
  without.resize(100, 20);
  EXPECT_NE(label.grab().toImage(), without.grab().toImage());
  EXPECT_EQ(label.grab().toImage(), blank) << "blanks are no text";
  label.setToolTip("Double-click");
  EXPECT_EQ(ToolTipOf(label), "Double-click") << "nothing of it is cut off";
  label.setText(" N0CALL");
  EXPECT_EQ(label.ShownText(), " N0CALL");
}

TEST(ElidingLabelTest, TheFocusIsSeen) {
  ElidingLabel label;
  label.setFocusPolicy(Qt::TabFocus);
  label.setText("N0CALL");
  label.resize(100, 20);
  label.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&label));
  label.clearFocus();
  const QColor highlight = label.palette().color(QPalette::Highlight);
  EXPECT_NE(label.grab().toImage().pixelColor(50, 0), highlight);
  label.setFocus();
  EXPECT_EQ(label.grab().toImage().pixelColor(50, 0), highlight);
}

}  // namespace
}  // namespace lobegraph
