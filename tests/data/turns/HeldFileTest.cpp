#include "data/turns/HeldFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <optional>
#include <sstream>

#include "data/base/RunTimeError.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

using Open = HeldFile::Open;

class HeldFileTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_.File("turn.lbg");

  std::string Content() const {
    std::ostringstream all;
    all << std::ifstream(path_, std::ios::binary).rdbuf();
    return all.str();
  }
  static int FaultOf(const std::string& path, Open how) {
    try {
      const HeldFile file(path, how);
    } catch (const RunTimeError& error) {
      return error.Number();
    }
    return 0;
  }
};

TEST_F(HeldFileTest, ANewFileTakesNoOthersPlace) {
  std::ofstream(path_) << "mine";
  EXPECT_EQ(FaultOf(path_, Open::New), fault::kFileExists);
  EXPECT_EQ(Content(), "mine");
}

TEST_F(HeldFileTest, ALinkThatIsPlantedThereIsNotFollowed) {
  std::filesystem::create_symlink(folder_.File("elsewhere"), path_);
  EXPECT_EQ(FaultOf(path_, Open::New), fault::kFileExists);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("elsewhere")));
}

TEST_F(HeldFileTest, TroubleIsToldByItsNumber) {
  EXPECT_EQ(FaultOf(folder_.File("none/turn.lbg"), Open::New), fault::kPathNotFound);
  EXPECT_EQ(FaultOf(path_, Open::Existing), fault::kPathNotFound);
}

TEST_F(HeldFileTest, IsRewrittenAtItsPlaceLongerOrShorter) {
  const HeldFile file(path_, Open::New);
  file.Rewrite("a long content");
  EXPECT_EQ(Content(), "a long content");
  file.Rewrite("short");
  EXPECT_EQ(Content(), "short");
}

TEST_F(HeldFileTest, GrowsAtItsEnd) {
  HeldFile file(path_, Open::New);
  file.Append("one,");
  file.Append("two");
  EXPECT_EQ(Content(), "one,two");
}

TEST_F(HeldFileTest, AFullDiskIsToldAndTheNextTryGoesOnWhereTheFileWasWhole) {
  HeldFile file(path_, Open::New);
  file.Append("whole ");
  signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{9, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_THROW(file.Append("second"), RunTimeError);
  setrlimit(RLIMIT_FSIZE, &before);
  file.Append("SECOND");
  EXPECT_EQ(Content(), "whole SECOND");
}

TEST_F(HeldFileTest, IsHeldAsLongAsTheObjectLives) {
  std::optional<HeldFile> file(std::in_place, path_, Open::New);
  EXPECT_TRUE(HeldElsewhere(path_));
  file.reset();
  EXPECT_FALSE(HeldElsewhere(path_));
  EXPECT_FALSE(HeldElsewhere(folder_.File("gone")));
}

TEST_F(HeldFileTest, AKilledProgramHoldsNothing) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const HeldFile file(path_, Open::New);
    if (write(ready[1], "x", 1) == 1) pause();
    _exit(0);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  EXPECT_TRUE(HeldElsewhere(path_));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_FALSE(HeldElsewhere(path_));
  close(ready[0]);
  close(ready[1]);
}

}  // namespace
}  // namespace lobegraph
