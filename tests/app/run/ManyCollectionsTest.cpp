// A season's work in one sitting.
#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <iterator>

#include "app/CollectionFixture.h"

namespace lobegraph {
namespace {

using enum Control;
namespace fs = std::filesystem;

class ManyCollectionsTest : public CollectionFixture {
 protected:
  static constexpr int kCollections = 1000;
  static constexpr int kReadings = 20;

  /// Turns of 100 ms a reading, halted early; what the doubles have noted down is dropped.
  void Take(int collections) {
    for (int i = 0; i < collections; ++i) {
      Type(txtReadingNumber, "");
      HaltAfter(kReadings);
      Collect();
      ASSERT_EQ(Record().NumReadings, kReadings - 1) << i;
      Forget();
      Sound.calls.clear();
      Pump.Yields = 0;
    }
    OnYield = nullptr;
  }
  static std::size_t BytesInUse() { return mallinfo2().uordblks; }
  static auto OpenFiles() { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); }
  auto Copies() { return std::distance(fs::directory_iterator(State.File("turns")), {}); }
};

TEST_F(ManyCollectionsTest, AThousandTurnsLeaveNoMemoryAndNoOpenFileBehind) {
  Take(static_cast<int>(kWorthyKept));
  const auto bytes = BytesInUse();
  const auto files = OpenFiles();
  const auto copies = Copies();
  Take(kCollections);
  EXPECT_LE(BytesInUse(), bytes + 4096);
  EXPECT_EQ(OpenFiles(), files);
  EXPECT_EQ(Copies(), copies) << "the oldest turns make room, with their logs";
}

}  // namespace
}  // namespace lobegraph
