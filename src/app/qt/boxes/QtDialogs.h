#pragma once

#include <QDialog>
#include <QInputDialog>
#include <QPointer>
#include <QWidget>

#include "app/parts/UserDialogs.h"

namespace lobegraph {

/// The boxes as a person meets them, each over the main window. While one is open IsOpen holds, so that its
/// closing is not taken for a return to the window.
class QtDialogs final : public UserDialogs {
 public:
  void SetOwner(QWidget* owner) { owner_ = owner; }
  bool IsOpen() const { return open_ > 0; }
  /// Boxes opened so far.
  int Opened() const { return opened_; }
  /// Closes what is open, as its cancel button would: the program ends.
  void CloseAll();
  /// Runs a dialog to its end. @return QDialog::Accepted, QDialog::Rejected or what the dialog gives
  int Run(QDialog& dialog);

  void Show(const UserMessage& message) override;
  bool AskYesNo(const std::string& text) override;
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title) override;
  std::optional<TickedAnswer> InputBoxWithTick(const std::string& prompt, const std::string& title,
                                               const std::string& tick) override;
  std::optional<std::string> OpenFile(const std::string& folder) override;
  std::optional<std::string> SaveFile(const std::string& folder) override;
  /// As OpenFile, for readings in a CSV file.
  std::optional<std::string> OpenCsvFile(const std::string& folder);

 private:
  /// The window that the user is in: a box opens over it and gives the focus back to it.
  QWidget* Owner() const;
  std::optional<std::string> Ask(QInputDialog& box, const std::string& prompt, const std::string& title);
  std::optional<std::string> AskFile(const std::string& folder, const QString& title, const char* filter);

  QWidget* owner_ = nullptr;
  int open_ = 0;
  int opened_ = 0;
  bool closing_ = false;
  QPointer<QDialog> current_;
};

}  // namespace lobegraph
