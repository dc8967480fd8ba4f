#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/serial/ComPorts.h"
#include "app/parts/AppParts.h"
#include "settings/SettingsStore.h"

namespace lobegraph {

/// What the chooser shows.
struct ChooserShown {
  int Input = 0;               ///< the ticked option of `optInput`
  int Trigger = 0;             ///< the ticked option of `optTrigger`
  bool MeterComShown = false;  ///< `frmMeterCom`
  std::vector<std::string> CommPorts = {};
  std::vector<std::string> ComTriggers = {};
  std::string CommPort = {};    ///< selected of CommPorts; empty: none
  std::string ComTrigger = {};  ///< selected of ComTriggers; empty: none
  bool ComTriggerEnabled = true;
  std::string CommPortTitle = {};    ///< what the meter's number is now
  std::string ComTriggerTitle = {};  ///< what the trigger's number is now
};

/// The chooser on the screen.
class ChooserView {
 public:
  virtual ~ChooserView() = default;
  virtual void Show(const ChooserShown& shown) = 0;
  virtual void Close() = 0;
};

/// The logic of the dialog that chooses where the level comes from and how the trigger arrives. Clicks of the
/// input options change the shared values at once; OK saves them, Cancel reads them back.
class frmChooseInput {
 public:
  frmChooseInput(const AppParts& parts, SettingsStore& store, ComPorts& ports, ChooserView& view)
      : parts_(parts), store_(store), ports_(ports), view_(view) {}

  void Form_Load();
  void optInput_Click(int index);
  void optTrigger_Click(int index);
  /// Saves the choice and closes; stays open when a serial meter has no port.
  void cmdOK_Click();
  /// Takes the option clicks back and closes; also what the close box and Escape do.
  void cmdCancel_Click();

  /// A number was chosen in a list: what it is now is shown beside it.
  void CommPort_Change(const std::string& number);
  void ComTrigger_Change(const std::string& number);
  /// The attached adapters that can be given to a number.
  std::vector<PortAdapter> Adapters() const { return ports_.Adapters(); }
  /// Gives an adapter to the number chosen in a list, from OK on.
  void AssignMeterPort(const std::string& path) { Assign(shown_.CommPort, path); }
  void AssignTriggerPort(const std::string& path) { Assign(shown_.ComTrigger, path); }

 private:
  void ShowAll();
  bool SerialMeterWithoutPort() const;
  void SaveChoice();
  void SetTriggerBox();
  void Assign(const std::string& numberText, const std::string& path);
  std::string TitleOf(const std::string& numberText) const;
  InputChoice& Choice() const { return parts_.Shared.Settings.Input; }

  AppParts parts_;
  SettingsStore& store_;
  ComPorts& ports_;
  ChooserView& view_;
  ChooserShown shown_;
  bool loading_ = false;
  std::map<int, std::string> assigned_;  ///< by COM number, saved with OK
};

namespace chooser {
inline constexpr const char* kCaption = "Lobegraph - Choose Input";
inline constexpr const char* kInputGroup = " Signal input device ";
inline constexpr const char* kPortGroup = " Comm port number ";
inline constexpr const char* kTriggerGroup = " External triggering ";
inline constexpr const char* kMeterPortLabel =
    "COM port number for TARVEN or ROSKA serially attached power meter";
inline constexpr std::string_view kTriggers[] = {
    "Use the DLP USB device", "Use the CTS pin of a COM port (choose 0 if no ext triggering)"};
inline constexpr int kUsb = 0;
inline constexpr int kCts = 1;
inline constexpr const char* kNoPortMessage =
    "Input devices TARVEN and ROSKA require a Comm port to operate.\r\n\r\n"
    "Please choose a Comm port between 1 and 32.";
}  // namespace chooser

}  // namespace lobegraph
