#include "cli/OutputFiles.h"

#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

int FaultOf(const std::string& path) {
  try {
    OutputFiles().Replace(path, "new");
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(OutputFiles, WritesAndReplacesAndLeavesNothingBeside) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("a"), "old");
  files.Replace(folder.File("a"), "new");
  EXPECT_EQ(files.Read(folder.File("a")), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

TEST(OutputFiles, SaysWhatStandsInTheWay) {
  const TemporaryFolder folder;
  EXPECT_EQ(FaultOf(folder.File("missing/a")), fault::kPathNotFound);
  EXPECT_EQ(FaultOf(folder.Path().string()), fault::kPathFileAccess);
  EXPECT_EQ(FaultOf("/dev/full"), fault::kDiskFull);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(OutputFiles, ALinkKeepsPointingAtItsFile) {
  const TemporaryFolder folder;
  OutputFiles files;
  files.Replace(folder.File("real"), "old");
  fs::create_symlink(folder.File("real"), folder.File("link"));
  files.Replace(folder.File("link"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(files.Read(folder.File("real")), "new");
}

}  // namespace
}  // namespace lobegraph
