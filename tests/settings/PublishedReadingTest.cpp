// A meter program's place in the store.
#include "settings/PublishedReading.h"

#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

TEST(PublishedReading, TheReadingStandsBeforeItCountsAndTheEndIsSaid) {
  RecordingStore store;
  {
    PublishedReading published(store);
    published.Publish("-20.00");
    published.Publish("-21.00");
  }
  EXPECT_THAT(store.Log,
              ElementsAre("save GaugeBridge/Settings/Reading=-20.00",
                          "save GaugeBridge/Settings/Calibrated=N", "save GaugeBridge/Settings/Active=Y",
                          "save GaugeBridge/Settings/Reading=-21.00", "save GaugeBridge/Settings/Active=N"));
}

TEST(PublishedReading, WhatIsCalibratedSaysSoBeforeItCounts) {
  RecordingStore store;
  PublishedReading published(store, true);
  published.Publish("-20.00");
  EXPECT_THAT(store.Log,
              ElementsAre("save GaugeBridge/Settings/Reading=-20.00",
                          "save GaugeBridge/Settings/Calibrated=Y", "save GaugeBridge/Settings/Active=Y"));
}

TEST(PublishedReading, WhatAFormerRunLeftBehindIsRetracted) {
  RecordingStore store;
  PublishedReading(store).Retract();
  EXPECT_THAT(store.Log, ElementsAre("save GaugeBridge/Settings/Active=N"));
}

}  // namespace
}  // namespace lobegraph
