#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lobegraph {

/// The number that is being received; it stays between two texts, which are cut anywhere.
struct Reception {
  std::string Buffer;                  ///< its characters so far
  bool Capturing = false;              ///< where a protocol marks its beginning: it has begun
  bool AfterBlank = false;             ///< the last character was a blank
  std::int32_t MeterReadingCount = 0;  ///< numbers completed, by a protocol that counts them

  /// Line noise without an end must not fill the memory: what follows the 64th character is dropped.
  void Append(char character) {
    constexpr std::size_t kLongestNumber = 64;
    if (Buffer.size() < kLongestNumber) Buffer += character;
  }
};

/// Hears of each complete number, as the meter sent it.
using NumberReceived = std::function<void(const std::string& number)>;

/// What a serial meter sends: takes a received text and hands over each number that it completes.
using SerialProtocol = void (*)(std::string_view text, Reception& reception, const NumberReceived& received);

}  // namespace lobegraph
