#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "acquisition/core/MeterDisplay.h"
#include "acquisition/core/UserMessages.h"
#include "acquisition/serial/SCom.h"
#include "acquisition/trigger/D2xx.h"

namespace lobegraph::test {

inline std::string NameOf(StatusColour colour) {
  switch (colour) {
    case StatusColour::Yellow:
      return "yellow";
    case StatusColour::Green:
      return "green";
    case StatusColour::LightRed:
      return "light red";
    case StatusColour::Red:
      return "red";
    case StatusColour::LightYellow:
      break;
  }
  return "light yellow";
}

/// What the doubles of a test were asked to do, in order.
using Calls = std::vector<std::string>;

/// The meter window; what it shows stays to be looked at.
class FakeDisplay final : public MeterDisplay {
 public:
  std::string lblStatus, Reading, lblStateCount;
  std::optional<StatusColour> Shape, Indicator;
  float Dbm = 0, DownDb = -1;
  int Shown = 0;
  int Changes = 0;
  std::function<void(const std::string&)> OnChange;  ///< hears of each status, shape and window, in words

  void ShowWindow() override {
    ++Shown;
    Tell("show meter window");
  }
  void HideWindow() override { Tell("hide meter window"); }

 private:
  void Show(const MeterShown& shown) override {
    ++Changes;
    if (lblStatus != shown.Status) Tell("lblStatus " + shown.Status);
    if (shown.StatusShape && Shape != shown.StatusShape) Tell("shape " + NameOf(*shown.StatusShape));
    lblStatus = shown.Status;
    lblStateCount = shown.StateCount;
    Shape = shown.StatusShape;
    Indicator = shown.LevelIndicator;
    DownDb = shown.DownDb.value_or(-1);
    if (const auto* text = std::get_if<std::string>(&shown.Reading)) Reading = *text;
    if (const auto* dbm = std::get_if<float>(&shown.Reading)) Dbm = *dbm;
  }
  void Tell(const std::string& what) const {
    if (OnChange) OnChange(what);
  }
};

/// A port in memory.
class FakeSCom final : public SCom {
 public:
  FakeSCom(Calls& calls, std::string name) : calls_(calls), name_(std::move(name)) {}

  bool IsOpen = false;
  Outcome OnOpen{.Opened = true, .GroupToJoin = ""};
  std::int16_t Number = 0;
  std::string Waiting;
  std::function<bool()> Line = [] { return false; };
  std::function<std::optional<std::uint32_t>()> Changes = [] { return std::nullopt; };

  bool PortOpen() const override { return IsOpen; }
  void Send(std::string_view text) override { Note("send " + std::string(text)); }
  std::int16_t PortNumber() const override { return Number; }
  Outcome Open(std::int16_t number, std::string_view baud) override {
    Number = number;
    Note("open " + std::to_string(number) + " " + std::string(baud));
    IsOpen = OnOpen.Opened;
    return OnOpen;
  }
  void Close() override {
    Note("close");
    IsOpen = false;
  }
  std::string Input() override { return std::exchange(Waiting, {}); }
  bool CtsHolding() override { return IsOpen && Line(); }
  std::optional<std::uint32_t> CtsChanges() override { return IsOpen ? Changes() : std::nullopt; }

 private:
  void Note(const std::string& call) { calls_.push_back(name_ + " " + call); }

  Calls& calls_;
  std::string name_;
};

/// The USB module's library: one module of two channels, unless the test says otherwise.
class FakeD2xx final : public D2xx {
 public:
  std::vector<std::string> Devices = {"DLP2232M A", "DLP2232M B"};
  std::map<std::string, FtStatus> Failures;  ///< by the call as it is noted
  Calls Made;
  std::function<void(const std::string&)> OnCall;  ///< hears of each as well
  std::function<std::uint8_t()> Pins = [] { return std::uint8_t{0}; };

  FtStatus FT_ListDevices(std::uint32_t& count, const std::string& empty, std::uint32_t flags) override {
    count = static_cast<std::uint32_t>(Devices.size());
    return Note("count " + empty + Hex(flags));
  }
  FtStatus FT_ListDevices(std::uint32_t index, FtDescription& description, std::uint32_t flags) override {
    description = DescriptionOf(index < Devices.size() ? Devices[index] : "");
    return Note("describe " + std::to_string(index) + " " + Hex(flags));
  }
  FtStatus FT_OpenEx(const FtDescription& description, std::uint32_t flags, FtHandle& handle) override {
    handle = 77;
    return Note("open " + TextOf(description) + " " + Hex(flags));
  }
  FtStatus FT_Close(FtHandle handle) override { return Note("close " + std::to_string(handle)); }
  FtStatus FT_GetQueueStatus(FtHandle handle, std::uint32_t& receiveCount) override {
    receiveCount = 0;
    return Note("queue " + std::to_string(handle));
  }
  FtStatus FT_SetLatencyTimer(FtHandle, std::uint8_t milliseconds) override {
    return Note("latency " + std::to_string(milliseconds));
  }
  FtStatus FT_SetBitMode(FtHandle, std::uint8_t mask, std::uint8_t mode) override {
    return Note("bit mode " + std::to_string(mask) + " " + std::to_string(mode));
  }
  FtStatus FT_GetBitMode(FtHandle, std::uint8_t& pins) override {
    pins = Pins();
    return Note("pins");
  }

 private:
  static std::string Hex(std::uint32_t value) {
    char text[11];
    std::snprintf(text, sizeof text, "0x%08x", value);
    return text;
  }
  FtStatus Note(const std::string& call) {
    Made.push_back(call);
    if (OnCall) OnCall(call);
    const auto failure = Failures.find(call);
    return failure == Failures.end() ? kFtOk : failure->second;
  }
};

class ShownMessages final : public UserMessages {
 public:
  std::vector<std::string> Texts;
  void Show(const UserMessage& message) override { Texts.push_back(message.Text); }
};

}  // namespace lobegraph::test
