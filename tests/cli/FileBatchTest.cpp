#include "cli/FileBatch.h"

#include <gmock/gmock.h>

#include <atomic>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace lobegraph {
namespace {

TEST(FileBatch, DeliversInOrderFromTheCallingThread) {
  for (const unsigned jobs : {1U, 2U, 7U}) {
    std::vector<std::size_t> order;
    const auto caller = std::this_thread::get_id();
    RunInOrder(
        1000, jobs, [](std::size_t index) { return FileResult{.Output = std::to_string(index)}; },
        [&](std::size_t index, const FileResult& result) {
          EXPECT_EQ(std::this_thread::get_id(), caller);
          EXPECT_EQ(result.Output, std::to_string(index));
          order.push_back(index);
        });
    ASSERT_EQ(order.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
  }
}

TEST(FileBatch, WorksOnNothing) {
  RunInOrder(
      0, 4, [](std::size_t) { return FileResult{}; },
      [](std::size_t, const FileResult&) { FAIL() << "there is nothing to deliver"; });
}

TEST(FileBatch, FewResultsWaitHoweverManyFilesThereAre) {
  std::atomic<std::size_t> worked = 0;
  std::size_t delivered = 0;
  std::size_t mostAhead = 0;
  RunInOrder(
      5000, 3,
      [&](std::size_t) {
        ++worked;
        return FileResult{};
      },
      [&](std::size_t, const FileResult&) {
        ++delivered;
        mostAhead = std::max(mostAhead, worked.load() - std::min(worked.load(), delivered));
      });
  EXPECT_EQ(delivered, 5000U);
  EXPECT_LE(mostAhead, 3U * 64U + 3U);
}

TEST(FileBatch, AnExceptionOfTheWorkReachesTheCaller) {
  for (const unsigned jobs : {1U, 4U})
    EXPECT_THROW(RunInOrder(
                     500, jobs,
                     [](std::size_t index) {
                       if (index == 77) throw std::runtime_error("77");
                       return FileResult{};
                     },
                     [](std::size_t, const FileResult&) {}),
                 std::runtime_error);
}

TEST(FileBatch, AnExceptionOfTheDeliveryStopsTheWork) {
  std::atomic<int> worked = 0;
  const auto deliver = [](std::size_t, const FileResult&) { throw std::runtime_error("full"); };
  EXPECT_THROW(RunInOrder(
                   100000, 4,
                   [&](std::size_t) {
                     ++worked;
                     return FileResult{};
                   },
                   deliver),
               std::runtime_error);
  EXPECT_LT(worked, 1000);
}

}  // namespace
}  // namespace lobegraph
