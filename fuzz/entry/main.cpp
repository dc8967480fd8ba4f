// One target as a program of libFuzzer's; the build names it.
#include <cstddef>
#include <cstdint>

#include "fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lobegraph::fuzz::LOBEGRAPH_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
