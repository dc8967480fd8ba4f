#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "acquisition/meters/SerialProtocol.h"

namespace lobegraph::test {

/// A text that a meter sends, and the numbers in it.
struct ReceivedRow {
  const char* Name;
  std::string Text;
  std::vector<std::string> Numbers;
};

/// The numbers of texts that arrive one after the other.
inline std::vector<std::string> Received(SerialProtocol protocol, const std::vector<std::string>& texts) {
  Reception reception;
  std::vector<std::string> numbers;
  for (const std::string& text : texts)
    protocol(text, reception, [&](const std::string& number) { numbers.push_back(number); });
  return numbers;
}

}  // namespace lobegraph::test
