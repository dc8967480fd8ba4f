#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/AppFixture.h"

namespace lobegraph {

/// A started window whose every visible and remembered thing can be compared.
class LoadFixture : public testing::Test, protected AppFixture {
 protected:
  LoadFixture() { Start(); }

  /// Everything of the window and the record that a load can touch.
  std::string Everything() const {
    std::string all;
    for (const ControlRow& row : ControlTable())
      all += View.Of(row.Id).Text + "|" + std::to_string(View.Of(row.Id).Checked) + "|" +
             std::to_string(View.Of(row.Id).Value) + "\n";
    const ReadingsRecord& record = Shared.Record;
    all += WritePatternText(record, "") + record.FilePath + "|" + record.FileName + "|" +
           std::to_string(record.ReadingCount) + "|" + std::to_string(Shared.BeamwidthDeg) + "|" +
           std::to_string(Shared.Beneath.has_value()) + std::to_string(Shared.HalfLoaded) +
           std::to_string(Shared.DescriptionLoaded) + std::to_string(Shared.Overlay) +
           std::to_string(Shared.Loading);
    return all;
  }
};

}  // namespace lobegraph
