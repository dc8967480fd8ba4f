#pragma once

#include "acquisition/InputDevices.h"
#include "acquisition/LevelReader.h"
#include "acquisition/MeterPort.h"
#include "acquisition/MeterWindow.h"

namespace lobegraph {

/// This version hears the sound card only: no meter's port is ever open, which a collection from one says.
class NoMeters final : public InputDevices, public MeterPort, public MeterWindow, public MeterPoll {
 public:
  void ShowMeterWindow() override {}
  void OpenMeterPort(std::int16_t, std::string_view) override {}
  void OpenTriggerPort() override {}
  void CloseMeterPort() override {}
  void CloseTriggerPort() override {}
  bool CloseUsbModule() override { return true; }

  bool PortOpen() const override { return false; }
  void Send(std::string_view) override {}

  void SetStatusText(const std::string&) override {}
  void PaintStatusShape(StatusColour) override {}
  void SetStateCount(const std::string&) override {}

  void Poll() override {}
};

}  // namespace lobegraph
