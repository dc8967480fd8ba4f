#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "data/turns/TurnFolder.h"
#include "data/turns/TurnLogText.h"
#include "support/AppFixture.h"

namespace lobegraph {

/// A started window whose turns last 36 seconds: 100 ms a reading.
class CollectionFixture : public testing::Test, protected AppFixture {
 protected:
  CollectionFixture() {
    Start();
    View.Of(Control::Slider2).Value = 36;  // 100 ms a reading
  }
  void Collect() { Press(Control::cmdCollectData); }
  /// Runs once, when that many readings have been taken.
  void At(int readings, std::function<void()> act) {
    OnYield = [this, readings, act = std::move(act), done = false]() mutable {
      if (done || !Shared.Run.IsCollecting || ReadingsDone() != readings) return;
      done = true;
      act();
    };
  }
  void HaltAfter(int readings) {
    At(readings, [this] { Press(Control::cmdHaltInput); });
  }
  std::string TurnFile() const {
    const std::vector<KeptTurn> kept = KeptTurns(State.File("turns"));
    return kept.empty() ? "" : kept.front().Path;
  }
  static ReadingsRecord OnDisk(const std::string& path) {
    DiskFiles disk;
    ReadingsRecord record;
    EXPECT_FALSE(LoadPatternFile(disk, path, {}, record).Error);
    return record;
  }
  /// The log that lies beside the turn's file.
  TurnLog LogOnDisk() const {
    DiskFiles disk;
    return ReadTurnLog(disk.Read(LogPathOf(TurnFile())));
  }
  void DamageRecord() {
    Files.Held["/patterns/damaged.lbg"] = "359\r\n1\r\n2\r\n";
    Load("/patterns/damaged.lbg");
    Forget();
  }
};

}  // namespace lobegraph
