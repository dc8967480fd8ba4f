// One target as a program of libFuzzer's; the build names it.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lobegraph::fuzz;
  static const Target& target = *std::ranges::find(Targets(), LOBEGRAPH_FUZZ_TARGET, &Target::Name);
  target.Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
