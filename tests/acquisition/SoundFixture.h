#pragma once

#include <gtest/gtest.h>

#include <string>

#include "acquisition/sound/frmDX_Record.h"
#include "support/SoundFakes.h"

namespace lobegraph::test {

/// The capture object over a sound system in memory.
class CaptureForm : public ::testing::Test {
 protected:
  std::string Initialize(std::int32_t rate = 44100, std::int16_t bits = 16, std::int16_t channels = 2,
                         std::int32_t size = 0, const std::string& device = "") {
    std::string error = "left from before";
    form_.Initialize(rate, bits, channels, size, device, error);
    return error;
  }
  void Hear(std::int16_t sample) {
    device_.ring->Write(BlockOf(sample));
    device_.Deliver();
  }

  FakeDevice device_;
  SoundLevelState state_;
  frmDX_Record form_{device_, state_};
};

}  // namespace lobegraph::test
