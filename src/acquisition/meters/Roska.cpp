#include "acquisition/meters/Roska.h"

#include <utility>

#include "data/base/Rounding.h"

namespace lobegraph {

void ReceiveRoska(std::string_view text, Reception& reception, const NumberReceived& received) {
  for (const char character : text) {
    if (character == ' ') {
      reception.Buffer.clear();
    } else if (character >= '0' && character <= '9') {
      reception.Append(character);
    } else if (character == ';') {
      received(std::exchange(reception.Buffer, {}));
      reception.MeterReadingCount = ToInt32(reception.MeterReadingCount + 1.0);
    }
  }
}

}  // namespace lobegraph
