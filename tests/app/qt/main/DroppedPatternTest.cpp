#include "app/qt/main/DroppedPattern.h"

#include <gtest/gtest.h>

#include <QUrl>

namespace lobegraph {
namespace {

std::optional<std::string> Drop(const QList<QUrl>& urls) {
  QMimeData data;
  data.setUrls(urls);
  return DroppedPattern(data);
}

TEST(DroppedPatternTest, OnePatternFileOfThisComputerIsTaken) {
  EXPECT_EQ(Drop({QUrl("file:///home/ham/a%20beam.lbg")}), "/home/ham/a beam.lbg");
  EXPECT_EQ(Drop({QUrl("file:///home/ham/BEAM.LBG")}), "/home/ham/BEAM.LBG");
}

TEST(DroppedPatternTest, AnythingElseIsNot) {
  EXPECT_EQ(Drop({}), std::nullopt);
  EXPECT_EQ(Drop({QUrl("file:///home/ham/beam.csv")}), std::nullopt);
  EXPECT_EQ(Drop({QUrl("http://example.org/beam.lbg")}), std::nullopt);
  EXPECT_EQ(Drop({QUrl("file:///a.lbg"), QUrl("file:///b.lbg")}), std::nullopt);
}

}  // namespace
}  // namespace lobegraph
