#include "acquisition/meters/Tarven.h"

namespace lobegraph {
namespace {

constexpr std::string_view kName = "TARVEN";

void Restart(Reception& reception, bool capturing) {
  reception.Buffer.clear();
  reception.Capturing = capturing;
}

/// @return false when the rest of the text means nothing
bool EndWord(Reception& reception, const NumberReceived& received) {
  if (reception.Buffer == kName) {
    Restart(reception, false);
    return false;
  }
  if (reception.Capturing) received(reception.Buffer);
  reception.Capturing = false;
  return true;
}

}  // namespace

void ReceiveTarven(std::string_view text, Reception& reception, const NumberReceived& received) {
  for (const char character : text) {
    if (character == '-') {
      Restart(reception, false);
    } else if (character == '\r') {
      Restart(reception, true);
    } else if (character == '\n') {
      reception.Buffer.clear();
    } else if (character == ' ') {
      if (!EndWord(reception, received)) return;
    } else if (reception.Capturing) {
      reception.Append(character);
    }
  }
}

}  // namespace lobegraph
