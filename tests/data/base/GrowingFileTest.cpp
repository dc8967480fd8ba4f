#include "data/base/GrowingFile.h"

#include <gtest/gtest.h>

#include "data/base/FileAccess.h"
#include "data/base/RunTimeError.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

TEST(GrowingFileTest, HoldsTheLatestContentAtAnyMoment) {
  const TemporaryFolder folder;
  DiskFiles files;
  const GrowingFile file(folder.File("a.lbg"));
  EXPECT_EQ(files.Read(folder.File("a.lbg")), "");
  for (const char* content : {"one", "one and two", "short"}) {
    file.Rewrite(content);
    EXPECT_EQ(files.Read(folder.File("a.lbg")), content);
  }
}

TEST(GrowingFileTest, EachObstacleHasItsNumber) {
  const TemporaryFolder folder;
  const auto faultOf = [](const std::string& path) {
    try {
      GrowingFile(path).Rewrite("content");
    } catch (const RunTimeError& error) {
      return error.Number();
    }
    return 0;
  };
  EXPECT_EQ(faultOf(folder.File("gone/a.lbg")), 76);
  EXPECT_EQ(faultOf(folder.Path().string()), 75);
  EXPECT_EQ(faultOf("/dev/full"), 61);
}

}  // namespace
}  // namespace lobegraph
