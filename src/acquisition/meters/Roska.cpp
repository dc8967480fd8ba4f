#include "acquisition/meters/Roska.h"

#include <utility>

#include "data/base/Rounding.h"

namespace lobegraph {

void ReceiveRoska(std::string_view text, Reception& reception, const NumberReceived& received) {
  for (const char character : text) {
    const bool afterBlank = std::exchange(reception.AfterBlank, character == ' ');
    if (character == ' ') {
      reception.Buffer.clear();
    } else if (character >= '0' && character <= '9') {
      reception.Append(character);
    } else if (character == ';' && (afterBlank || !reception.Buffer.empty())) {
      received(std::exchange(reception.Buffer, {}));
      reception.MeterReadingCount = ToInt32(reception.MeterReadingCount + 1.0);
    }
  }
}

}  // namespace lobegraph
