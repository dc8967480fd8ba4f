#include "app/qt/parts/OutlinedStyle.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <algorithm>

namespace lobegraph {
namespace {

const QColor kDark(35, 38, 41);
const QColor kLight(239, 240, 241);

class OutlinedStyleTest : public ::testing::Test {
 protected:
  /// How far the lightest pixel of the empty control stands out from its ground.
  template <typename Widget>
  int OutlineOn(const QColor& ground) {
    QPalette palette(ground);
    style_.polish(palette);
    Widget widget;
    widget.setStyle(&style_);
    widget.setPalette(palette);
    widget.resize(16, 20);
    const QImage shown = widget.grab().toImage();
    int lightest = 0;
    for (int x = 0; x < shown.width(); ++x)
      lightest = std::max(lightest, shown.pixelColor(x, shown.height() / 2).lightness());
    return lightest - ground.lightness();
  }

  OutlinedStyle style_;
};

TEST_F(OutlinedStyleTest, OnADarkThemeAnEmptyBoxIsSeenByItsOutline) {
  constexpr int kSeen = 60;
  EXPECT_GT(OutlineOn<QCheckBox>(kDark), kSeen);
  EXPECT_GT(OutlineOn<QRadioButton>(kDark), kSeen);
  EXPECT_GT(OutlineOn<QLineEdit>(kDark), kSeen);
}

TEST_F(OutlinedStyleTest, OnALightThemeNothingIsAdded) {
  const auto picture = [](QStyle& style) {
    QCheckBox box;
    box.setStyle(&style);
    box.setPalette(QPalette(kLight));
    return box.grab().toImage();
  };
  QProxyStyle plain("Fusion");
  EXPECT_EQ(picture(style_), picture(plain));
}

TEST_F(OutlinedStyleTest, WhatStandsInAnEmptyBoxIsAShadeOfItsText) {
  QPalette palette(kDark);
  palette.setColor(QPalette::Text, Qt::white);
  palette.setColor(QPalette::PlaceholderText, Qt::black);
  style_.polish(palette);
  const QColor faint = palette.color(QPalette::PlaceholderText);
  EXPECT_EQ(faint.rgb(), QColor(Qt::white).rgb());
  EXPECT_LT(faint.alpha(), 200);
}

}  // namespace
}  // namespace lobegraph
