#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <functional>
#include <vector>

#include "app/qt/boxes/QtDialogs.h"
#include "app/settings/frmSettings.h"

namespace lobegraph {

/// The settings dialog on the screen. Escape and the close box are Cancel; Enter does nothing anywhere in it.
/// A button pressed with the mouse leaves the focus where it is, so that OK meets the box in hand.
class frmSettingsDialog : public QDialog {
  Q_OBJECT

 public:
  frmSettingsDialog(frmSettings& commands, QtDialogs& dialogs, const QString& notice, QWidget* parent);

  /// OK; refused while the box in hand is.
  void accept() override;
  /// Cancel.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QGridLayout* MakeFrame(const QString& caption);
  QWidget* MakeGroup(SettingsGroup group, const QString& caption, const QString& defaultName,
                     const QString& about);
  QLineEdit* MakeBox(const SettingsBoxRow& row);
  QWidget* MakeColours();
  void AlignFrames();
  QWidget* MakeFoot(const QString& notice);
  /// A button whose press first leaves the box in hand.
  QPushButton* MakeButton(const QString& name, const QString& caption, const std::function<void()>& pressed);
  QPushButton* MakePlainButton(const QString& name, const QString& caption,
                               const std::function<void()>& pressed);
  QPushButton* MakeColourButton(std::size_t index);

  void FillBoxes();
  void PaintColours();
  void ChooseColour(std::size_t index);
  /// The box that has the focus is left in order to press a button. @return false when it was refused
  bool LeaveBoxInHand();
  void LeaveBox(SettingsBox box);
  void ReturnTo(SettingsBox box);
  QLineEdit& BoxOf(SettingsBox box) const { return *boxes_.at(static_cast<std::size_t>(box)); }

  frmSettings& commands_;
  QtDialogs& dialogs_;
  std::array<QLineEdit*, static_cast<std::size_t>(SettingsBox::kCount)> boxes_{};
  std::vector<QPushButton*> colours_;
  std::vector<QGridLayout*> frames_;
  bool returning_ = false;  ///< the focus is on its way back to a refused box
  bool closing_ = false;
};

}  // namespace lobegraph
