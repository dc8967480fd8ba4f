// A meter program's place in the store.
#include "settings/PublishedReading.h"

#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct Rig {
  RecordingStore Store;
  PublishedReading::Time Now;
  PublishedReading Published{Store, false, [this] { return Now; }};

  std::string Value(const std::string& key) const { return Store.Values.at("GaugeBridge/Settings/" + key); }
};

TEST(PublishedReading, ReadingActiveAndBeatAreWrittenInOneStepAndTheEndIsSaid) {
  RecordingStore store;
  { PublishedReading(store).Publish("-20.00"); }
  EXPECT_THAT(
      store.Log,
      ElementsAre("save GaugeBridge/Settings/Reading=-20.00", "save GaugeBridge/Settings/Calibrated=N",
                  "save GaugeBridge/Settings/Active=Y", StartsWith("save GaugeBridge/Settings/Beat="),
                  "save GaugeBridge/Settings/Active=N"));
}

TEST(PublishedReading, NothingIsFlushedToTheDisk) {
  Rig rig;
  rig.Published.Publish("-20.00");
  EXPECT_EQ(rig.Store.LastKeeping, Keeping::Fleeting);
  rig.Published.Retract();
  EXPECT_EQ(rig.Store.LastKeeping, Keeping::Fleeting);
}

TEST(PublishedReading, AChangeIsWrittenAtOnceAndWhatStaysOnceASecond) {
  Rig rig;
  rig.Published.Publish("-20.00");
  const std::string beat = rig.Value("Beat");
  rig.Store.Log.clear();
  rig.Now += std::chrono::milliseconds(999);
  EXPECT_TRUE(rig.Published.Publish("-20.00"));
  EXPECT_THAT(rig.Store.Log, IsEmpty());
  EXPECT_TRUE(rig.Published.Publish("-21.00"));
  EXPECT_EQ(rig.Value("Reading"), "-21.00");
  rig.Store.Log.clear();
  rig.Now += std::chrono::milliseconds(1000);
  EXPECT_TRUE(rig.Published.Publish("-21.00"));
  EXPECT_EQ(rig.Store.Log.size(), 4U);
  EXPECT_NE(rig.Value("Beat"), beat);
}

TEST(PublishedReading, AStoreThatCannotBeWrittenIsToldAndTriedAgain) {
  Rig rig;
  rig.Store.FailsToSave = true;
  EXPECT_FALSE(rig.Published.Publish("-20.00"));
  EXPECT_FALSE(rig.Published.Publish("-20.00")) << "it does not stand there";
  rig.Store.FailsToSave = false;
  EXPECT_TRUE(rig.Published.Publish("-20.00"));
  rig.Store.FailsToSave = true;
  EXPECT_FALSE(rig.Published.Retract());
  rig.Store.FailsToSave = false;
  EXPECT_TRUE(rig.Published.Retract());
  EXPECT_EQ(rig.Value("Active"), "N");
}

TEST(PublishedReading, WhatCouldNotBeReplacedIsTakenBackAtTheEnd) {
  RecordingStore store;
  {
    PublishedReading published(store);
    published.Publish("-20.00");
    store.FailsToSave = true;
    published.Publish("-30.00");
    store.FailsToSave = false;
  }
  EXPECT_EQ(store.Values.at("GaugeBridge/Settings/Active"), "N");
}

TEST(PublishedReading, WhatIsCalibratedSaysSoBeforeItCounts) {
  RecordingStore store;
  PublishedReading published(store, true);
  published.Publish("-20.00");
  EXPECT_THAT(
      store.Log,
      ElementsAre("save GaugeBridge/Settings/Reading=-20.00", "save GaugeBridge/Settings/Calibrated=Y",
                  "save GaugeBridge/Settings/Active=Y", StartsWith("save GaugeBridge/Settings/Beat=")));
}

TEST(PublishedReading, WhatAFormerRunLeftBehindIsRetracted) {
  RecordingStore store;
  EXPECT_TRUE(PublishedReading(store).Retract());
  EXPECT_THAT(store.Log, ElementsAre("save GaugeBridge/Settings/Active=N"));
}

TEST(PublishedReading, ABeatOfAFormerRunIsNotRepeated) {
  RecordingStore store;
  { PublishedReading(store).Publish("-20.00"); }
  const std::string former = store.Values.at("GaugeBridge/Settings/Beat");
  { PublishedReading(store).Publish("-20.00"); }
  EXPECT_NE(store.Values.at("GaugeBridge/Settings/Beat"), former);
}

}  // namespace
}  // namespace lobegraph
