#include "app/qt/editor/frmEditLbgWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "app/qt/panel/WindowLayout.h"
#include "app/qt/parts/FontFace.h"

namespace lobegraph {
namespace {

/// Twips, 15 to a unit.
constexpr std::array kColumnWidths = {525, 900, 960};
constexpr int kHeight = 560;
constexpr int kFrame = 8;  // of a window, at its side

}  // namespace

frmEditLbgWindow::frmEditLbgWindow(QWidget* owner, QtDialogs& dialogs)
    : QWidget(owner, Qt::Window),
      dialogs_(dialogs),
      grdReadings_(new EditorTable(this)),
      lblStatus_(new QLabel(this)) {
  setObjectName("frmEditLbg");
  setWindowTitle("Lbg editor");
  MakeTable();
  auto* column = new QWidget(this);
  auto* buttons = new QVBoxLayout(column);
  buttons->setContentsMargins({});
  AddButton(*column, "cmdGetDataFromPlot", "Get values from the plot", &frmEditLbg::cmdGetDataFromPlot_Click);
  cmdGetDataFromFile_ = AddButton(*column, "cmdGetDataFromFile", "Get values from a CSV file",
                                  &frmEditLbg::cmdGetDataFromFile_Click);
  AddButton(*column, "cmdInsert", "Insert a row", &frmEditLbg::cmdInsert_Click);
  AddButton(*column, "cmdDelete", "Delete a row", &frmEditLbg::cmdDelete_Click);
  cmdUpdate_ = AddButton(*column, "cmdUpdate", "Update the plot", &frmEditLbg::cmdUpdate_Click);
  AddButton(*column, "Command1", "Clear all values", &frmEditLbg::Command1_Click);
  buttons->addStretch();
  lblStatus_->setObjectName("lblStatus");
  lblStatus_->setAccessibleName("What happened last");
  lblStatus_->setTextFormat(Qt::PlainText);
  lblStatus_->setWordWrap(true);
  lblStatus_->setMinimumHeight(2 * lblStatus_->fontMetrics().lineSpacing());

  auto* top = new QHBoxLayout;
  top->addWidget(grdReadings_);
  top->addWidget(column);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top, 1);
  all->addWidget(lblStatus_);
  ApplyFace(*this, MenuFontFace());
  resize(sizeHint().width(), kHeight);
}

void frmEditLbgWindow::MakeTable() {
  grdReadings_->setObjectName("grdReadings");
  grdReadings_->setAccessibleName("Readings");
  grdReadings_->setModel(&model_);
  int width = 2 * grdReadings_->frameWidth() + grdReadings_->verticalScrollBar()->sizeHint().width();
  for (int column = 0; column < EditorGrid::kColumns; ++column) {
    const int wide = kColumnWidths.at(static_cast<std::size_t>(column)) / kTwipsPerUnit;
    grdReadings_->setColumnWidth(column, wide);
    width += wide;
  }
  grdReadings_->setFixedWidth(width);
}

QPushButton* frmEditLbgWindow::AddButton(QWidget& column, const char* name, const char* caption,
                                         void (frmEditLbg::*command)()) {
  auto* button = new QPushButton(caption, &column);
  button->setObjectName(name);
  button->setAccessibleName(caption);
  column.layout()->addWidget(button);
  connect(button, &QPushButton::clicked, this,
          [this, command] { run_([this, command] { std::invoke(command, commands_); }); });
  return button;
}

void frmEditLbgWindow::Connect(frmEditLbg& commands, std::function<void(const std::function<void()>&)> run) {
  commands_ = &commands;
  run_ = std::move(run);
  model_.SetCommands(commands);
  grdReadings_->SetCommands(commands);
}

void frmEditLbgWindow::Open() {
  if (!isVisible()) PlaceBesideOwner();
  grdReadings_->scrollToTop();
  grdReadings_->setCurrentIndex({});
  show();
  raise();
  activateWindow();
  grdReadings_->setFocus();
}

void frmEditLbgWindow::PlaceBesideOwner() {
  const QRect owner = parentWidget()->frameGeometry();
  const QRect screen = parentWidget()->screen()->availableGeometry();
  const int right = std::min(owner.right() + 1, screen.right() - width() - kFrame);
  move(std::max(right, screen.left()), owner.top());
}

void frmEditLbgWindow::Unload() { hide(); }

int frmEditLbgWindow::CurrentRow() const { return grdReadings_->currentIndex().row() + 1; }

void frmEditLbgWindow::SelectRow(int row) {
  grdReadings_->setCurrentIndex(model_.index(row - 1, static_cast<int>(EditorColumn::Value)));
}

void frmEditLbgWindow::ShowStatus(const std::string& text) {
  lblStatus_->setText(QString::fromStdString(text));
  // To a screen reader its name says what it is, its description what it says.
  lblStatus_->setAccessibleDescription(lblStatus_->text());
}

void frmEditLbgWindow::AllowUpdate(bool allowed) {
  cmdUpdate_->setEnabled(allowed);
  cmdGetDataFromFile_->setEnabled(allowed);
}

std::optional<std::string> frmEditLbgWindow::AskCsvFile(const std::string& folder) {
  return dialogs_.OpenCsvFile(folder);
}

void frmEditLbgWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  run_([this] { commands_->Form_Unload(); });
}

}  // namespace lobegraph
