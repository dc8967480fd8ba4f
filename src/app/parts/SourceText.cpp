#include "app/parts/SourceText.h"

namespace lobegraph {

std::string SourceText(const InputChoice& choice, const std::string& soundSource) {
  if (!choice.InputDeviceIsdBMeter)
    return soundSource.empty() ? (choice.InputDeviceIsLineIn ? "Sound: line-in" : "Sound: microphone")
                               : soundSource;
  if (choice.GaugeBridge) return "External meter program";
  return (choice.ROSKAmeter ? "ROSKA, COM" : "TARVEN, COM") + std::to_string(choice.Commport);
}

}  // namespace lobegraph
