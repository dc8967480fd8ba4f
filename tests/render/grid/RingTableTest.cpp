#include "render/grid/RingTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

TEST(RingTable, keeps_the_order_of_computation) {
  std::vector<float> levels;
  const RingTable table(234, 20);
  for (const RingTable::Entry& entry : table.Entries()) levels.push_back(entry.LevelDb);
  EXPECT_THAT(levels, testing::ElementsAre(0.0F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F, 9.0F, 10.0F,
                                           12.0F, 14.0F, 16.0F, 18.0F, 12.5F, 15.0F, 17.5F, 20.0F, 22.0F,
                                           24.0F, 26.0F, 28.0F, 25.0F, 30.0F, 35.0F, 40.0F, 50.0F));
}

TEST(RingTable, every_entry_is_the_full_radius_times_ten_to_the_minus_level_by_scale) {
  const RingTable table(234, 35);
  for (const RingTable::Entry& entry : table.Entries()) {
    EXPECT_EQ(entry.Radius, static_cast<float>(234 * std::pow(10.0, -entry.LevelDb / 35.0))) << entry.LevelDb;
    EXPECT_EQ(table.Radius(entry.LevelDb), entry.Radius);
  }
}

struct Known {
  float LevelDb;
  double Radius;
};

TEST(RingTable, radii_at_scale_20) {
  const RingTable table(234, 20);
  for (const Known known : {Known{0, 234}, Known{2, 185.87}, Known{3, 165.66}, Known{4, 147.64},
                            Known{6, 117.28}, Known{8, 93.16}, Known{10, 74.00}, Known{20, 23.40},
                            Known{30, 7.40}, Known{40, 2.34}, Known{50, 0.74}}) {
    EXPECT_NEAR(table.Radius(known.LevelDb), known.Radius, 0.005) << known.LevelDb;
  }
}

TEST(RingTable, a_larger_scale_spreads_the_low_levels_outwards) {
  EXPECT_GT(RingTable(234, 40).Radius(50), RingTable(234, 20).Radius(50));
  EXPECT_EQ(RingTable(234, 40).Radius(0), RingTable(234, 20).Radius(0));
}

TEST(RingTable, a_scale_of_0_is_a_division_by_zero) {
  try {
    const RingTable table(234, 0);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), fault::kDivisionByZero);
  }
}

TEST(RingTable, a_level_without_a_ring_is_a_subscript_error) {
  EXPECT_THROW(RingTable(234, 20).Radius(11), RunTimeError);
}

}  // namespace
}  // namespace lobegraph
