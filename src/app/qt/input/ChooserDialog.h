#pragma once

#include <QButtonGroup>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>

#include "app/input/frmChooseInput.h"

namespace lobegraph {

/// The input chooser as a dialog (`frmChooseInput`). Closing it by its close box or Escape is Cancel.
class ChooserDialog final : public QDialog, public ChooserView {
  Q_OBJECT

 public:
  ChooserDialog(const AppParts& parts, SettingsStore& store, ComPorts& ports, QWidget* owner);

  void reject() override;

  void TickInput(int index) override { optInput_->button(index)->setChecked(true); }
  void TickTrigger(int index) override { optTrigger_->button(index)->setChecked(true); }
  bool TriggerTicked(int index) const override { return optTrigger_->button(index)->isChecked(); }
  void ShowMeterCom(bool shown) override { frmMeterCom_->setVisible(shown); }
  void FillCommPort(const std::vector<std::string>& entries) override { Fill(*cboCommPort_, entries); }
  void FillComTrigger(const std::vector<std::string>& entries) override { Fill(*cboComTrigger_, entries); }
  void SelectCommPort(const std::string& text) override { Select(*cboCommPort_, text); }
  void SelectComTrigger(const std::string& text) override { Select(*cboComTrigger_, text); }
  void EnableComTrigger(bool enabled) override { cboComTrigger_->setEnabled(enabled); }
  std::string CommPortText() const override { return cboCommPort_->currentText().toStdString(); }
  std::string ComTriggerText() const override { return cboComTrigger_->currentText().toStdString(); }
  void ShowPortTitles(const std::string& meterPort, const std::string& triggerPort) override;
  void Close() override { done(Accepted); }

 private:
  using Assigner = void (frmChooseInput::*)(const std::string& path);
  /// A list of port numbers with what the chosen one is now and the menu that gives an adapter to it.
  struct PortRow {
    QComboBox* List;
    QLabel* Title;
  };
  QGroupBox* MakeInputGroup();
  QGroupBox* MakeMeterCom();
  QGroupBox* MakeTriggerGroup();
  PortRow MakePortRow(QGroupBox& group, const char* listName, const char* accessibleName, Assigner assign);
  void FillAdapterMenu(QMenu& menu, Assigner assign);
  static void Fill(QComboBox& list, const std::vector<std::string>& entries);
  static void Select(QComboBox& list, const std::string& text);

  frmChooseInput form_;
  QButtonGroup* optInput_;
  QButtonGroup* optTrigger_;
  QGroupBox* frmMeterCom_ = nullptr;
  QComboBox* cboCommPort_ = nullptr;
  QComboBox* cboComTrigger_ = nullptr;
  QLabel* meterPortTitle_ = nullptr;
  QLabel* triggerPortTitle_ = nullptr;
};

}  // namespace lobegraph
