#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "app/editor/frmEditLbg.h"
#include "app/parts/EditorView.h"
#include "app/qt/boxes/QtDialogs.h"
#include "app/qt/editor/EditorModel.h"
#include "app/qt/editor/EditorTable.h"

namespace lobegraph {

/// The readings editor on the screen.
class frmEditLbgWindow : public QWidget, public EditorView {
  Q_OBJECT

 public:
  /// @param dialogs outlives the window
  frmEditLbgWindow(QWidget* owner, QtDialogs& dialogs);

  /// Gives the window its commands. @param run runs each of them
  void Connect(frmEditLbg& commands, std::function<void(const std::function<void()>&)> run);

  void Open() override;
  void Unload() override;
  void ShowCells() override { model_.Refresh(); }
  int CurrentRow() const override;
  void SelectRow(int row) override;
  void ShowStatus(const std::string& text) override;
  void AllowUpdate(bool allowed) override;
  std::optional<std::string> AskCsvFile(const std::string& folder) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeTable();
  /// The plot stays in sight where the screen has room.
  void PlaceBesideOwner();
  QPushButton* AddButton(QWidget& column, const char* name, const char* caption,
                         void (frmEditLbg::*command)());

  QtDialogs& dialogs_;
  EditorModel model_;
  EditorTable* grdReadings_;
  QLabel* lblStatus_;
  QPushButton* cmdGetDataFromFile_ = nullptr;
  QPushButton* cmdUpdate_ = nullptr;
  frmEditLbg* commands_ = nullptr;
  std::function<void(const std::function<void()>&)> run_;
};

}  // namespace lobegraph
