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

  void Show(const ChooserShown& shown) override;
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
  static void ShowList(QComboBox& list, const std::vector<std::string>& entries, const std::string& selected);
  static void ShowTitle(QLabel& title, const std::string& text);

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
