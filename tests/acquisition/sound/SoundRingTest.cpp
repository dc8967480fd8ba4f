#include "acquisition/sound/SoundRing.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "data/base/RunTimeError.h"
#include "support/SoundFakes.h"

namespace lobegraph {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kSecondHalf = 11, kFirstHalf = 12, kStopped = 13;

CaptureBuffer BufferOf(std::int32_t halfBytes) {
  return {
      WaveFormat{}, halfBytes, 2 * halfBytes, {{{1, kSecondHalf}, {halfBytes, kFirstHalf}, {-1, kStopped}}}};
}

std::vector<std::byte> Bytes(std::size_t count, int value) { return {count, static_cast<std::byte>(value)}; }

class SoundRingTest : public ::testing::Test {
 protected:
  std::vector<std::byte> Half(int which) {
    std::vector<std::byte> bytes(4);
    ring_.Read(which * 4, bytes);
    return bytes;
  }
  int wakes_ = 0;
  SoundRing ring_{BufferOf(4), [this] { ++wakes_; }};
};

TEST_F(SoundRingTest, BlocksOverwriteTheTwoHalvesInTurn) {
  ring_.Write(Bytes(4, 1));
  EXPECT_THAT(ring_.TakeNotices(), ElementsAre(kFirstHalf));
  ring_.Write(Bytes(4, 2));
  EXPECT_THAT(ring_.TakeNotices(), ElementsAre(kSecondHalf));
  EXPECT_THAT(Half(0), Each(std::byte{1}));
  EXPECT_THAT(Half(1), Each(std::byte{2}));
  ring_.Write(Bytes(4, 3));
  EXPECT_THAT(ring_.TakeNotices(), ElementsAre(kFirstHalf));
  EXPECT_THAT(Half(0), Each(std::byte{3}));
  EXPECT_THAT(Half(1), Each(std::byte{2}));
}

TEST_F(SoundRingTest, AnUnfinishedBlockIsNeitherSeenNorAnnounced) {
  ring_.Write(Bytes(3, 9));
  EXPECT_THAT(ring_.TakeNotices(), IsEmpty());
  EXPECT_THAT(Half(0), Each(std::byte{0}));
  EXPECT_EQ(wakes_, 0);
}

TEST_F(SoundRingTest, AnEmptyChunkChangesNothing) {
  ring_.Write({});
  EXPECT_EQ(wakes_, 0);
}

TEST_F(SoundRingTest, HoweverLongNobodyLooksOnlyTheTwoNewestBlocksWait) {
  for (int block = 1; block <= 7; ++block) ring_.Write(Bytes(4, block));
  EXPECT_EQ(wakes_, 1) << "one wake until the notices are taken";
  EXPECT_THAT(ring_.TakeNotices(), ElementsAre(kSecondHalf, kFirstHalf)) << "the newest block comes last";
  EXPECT_THAT(Half(0), Each(std::byte{7}));
  EXPECT_THAT(Half(1), Each(std::byte{6}));
  EXPECT_THAT(ring_.TakeNotices(), IsEmpty());
}

TEST_F(SoundRingTest, AfterTheNoticesAreTakenTheNextBlockWakesAgain) {
  ring_.Write(Bytes(4, 1));
  ring_.TakeNotices();
  ring_.Write(Bytes(4, 2));
  EXPECT_EQ(wakes_, 2);
}

TEST_F(SoundRingTest, TheStopMarkerHasANoticeOfItsOwn) {
  ring_.NoteStopped();
  EXPECT_EQ(wakes_, 1);
  EXPECT_THAT(ring_.TakeNotices(), ElementsAre(kStopped));
}

TEST_F(SoundRingTest, ReadingBeyondTheRingIsRefused) {
  std::vector<std::byte> bytes(4);
  EXPECT_NO_THROW(ring_.Read(4, bytes));
  EXPECT_THROW(ring_.Read(5, bytes), RunTimeError);
  EXPECT_THROW(ring_.Read(-1, bytes), RunTimeError);
  EXPECT_THROW(ring_.Read(9, bytes), RunTimeError);
}

TEST(SoundRingChunks, AnyChunkingGivesTheSameBlocks) {
  std::vector<std::byte> audio(1764 * 5);
  for (std::size_t i = 0; i < audio.size(); ++i) audio[i] = static_cast<std::byte>(i * 7 % 251);
  for (const std::size_t chunk : {1U, 3U, 4U, 1763U, 1764U, 1765U, 3528U, 5000U, 8820U}) {
    SoundRing ring(BufferOf(1764), [] {});
    std::span<const std::byte> rest(audio);
    while (!rest.empty()) {
      const std::size_t taken = std::min(chunk, rest.size());
      ring.Write(rest.first(taken));
      rest = rest.subspan(taken);
    }
    std::vector<std::byte> newest(1764), before(1764);
    ring.Read(0, newest);
    ring.Read(1764, before);
    EXPECT_TRUE(std::equal(newest.begin(), newest.end(), audio.begin() + 1764 * 4)) << chunk;
    EXPECT_TRUE(std::equal(before.begin(), before.end(), audio.begin() + 1764 * 3)) << chunk;
  }
}

TEST(SoundRingThreads, AHalfIsOnlyEverSeenWhole) {
  constexpr int kBlocks = 20000;
  std::atomic<bool> woken = false, done = false;
  SoundRing ring(BufferOf(64), [&] { woken = true; });
  std::jthread capture([&] {
    for (int block = 0; block < kBlocks; ++block) ring.Write(Bytes(64, block % 200));
    done = true;
  });
  std::vector<std::byte> half(64);
  while (!done || woken) {
    if (!woken.exchange(false)) continue;
    const auto notices = ring.TakeNotices();
    EXPECT_LE(notices.size(), 2U);
    for (const std::int32_t notice : notices) {
      ring.Read(notice == kSecondHalf ? 64 : 0, half);
      EXPECT_THAT(half, Each(half.front()));
    }
  }
}

}  // namespace
}  // namespace lobegraph
