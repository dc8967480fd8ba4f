#include "app/qt/boxes/QtDialogs.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QFileDialog>
#include <QMessageBox>

#include "app/parts/EditorView.h"
#include "app/qt/help/HelpWindow.h"

namespace lobegraph {
namespace {

constexpr const char* kSaveTitle = "Save File";

QString Q(const std::string& text) { return QString::fromStdString(text); }

QString Lines(const std::string& text) { return Q(text).replace("\r\n", "\n"); }

/// "A (*.a)|*.a|B (*.*)|*.*" as the list of its texts.
QStringList FilterTexts(const QString& filter) {
  QStringList texts;
  const QStringList parts = filter.split('|');
  for (qsizetype i = 0; i < parts.size(); i += 2) texts << parts[i];
  return texts;
}

}  // namespace

int QtDialogs::Run(QDialog& dialog) {
  if (closing_) return QDialog::Rejected;
  const QPointer<QDialog> before = current_;
  current_ = &dialog;
  ++open_;
  ++opened_;
  const int result = dialog.exec();
  --open_;
  current_ = before;
  if (closing_ && before) before->reject();
  return result;
}

void QtDialogs::CloseAll() {
  closing_ = true;
  if (current_) current_->reject();
}

void QtDialogs::Show(const UserMessage& message) {
  QMessageBox box(Owner());
  box.setWindowTitle(message.Title.empty() ? "Lobegraph" : Q(message.Title));
  box.setTextFormat(Qt::PlainText);
  box.setText(Lines(message.Text));
  box.setIcon(message.Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  box.setStandardButtons(QMessageBox::Ok);
  Run(box);
}

bool QtDialogs::AskYesNo(const std::string& text) {
  QMessageBox box(Owner());
  box.setWindowTitle("Lobegraph");
  box.setTextFormat(Qt::PlainText);
  box.setText(Lines(text));
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::No);  // a stray Enter must not cost a file
  return Run(box) == QMessageBox::Yes;
}

std::optional<std::string> QtDialogs::InputBox(const std::string& prompt, const std::string& title) {
  QInputDialog box(Owner());
  return Ask(box, prompt, title);
}

std::optional<TickedAnswer> QtDialogs::InputBoxWithTick(const std::string& prompt, const std::string& title,
                                                        const std::string& tick) {
  QInputDialog box(Owner());
  static_cast<void>(
      box.sizeHint());  // lays out prompt, line and buttons, so that the line is typed into first
  auto* toTick = new QCheckBox(Q(tick), &box);
  static_cast<QBoxLayout*>(box.layout())->insertWidget(box.layout()->count() - 1, toTick);
  const auto text = Ask(box, prompt, title);
  if (!text) return std::nullopt;
  return TickedAnswer{*text, toTick->isChecked()};
}

std::optional<std::string> QtDialogs::Ask(QInputDialog& box, const std::string& prompt,
                                          const std::string& title) {
  box.setWindowTitle(Q(title));
  box.setLabelText(Q(prompt));
  if (Run(box) != QDialog::Accepted) return std::nullopt;
  return box.textValue().toStdString();
}

std::optional<std::string> QtDialogs::OpenFile(const std::string& folder) {
  return AskFile(folder, "Get File", kPatternFilter);
}

std::optional<std::string> QtDialogs::SaveFile(const std::string& folder) {
  return AskFile(folder, kSaveTitle, kPatternFilter);
}

std::optional<std::string> QtDialogs::OpenCsvFile(const std::string& folder) {
  return AskFile(folder, "Get CSV File", kCsvFilter);
}

/// Never a window that is deleted when it is closed: the box would be deleted with it, in the middle of its
/// question.
QWidget* QtDialogs::Owner() const {
  if (current_) return current_;
  QWidget* active = QApplication::activeWindow();
  const bool lasts = active != nullptr && qobject_cast<HelpWindow*>(active) == nullptr &&
                     qobject_cast<QDialog*>(active) == nullptr;
  return lasts ? active : owner_;
}

std::optional<std::string> QtDialogs::AskFile(const std::string& folder, const QString& title,
                                              const char* filter) {
  QFileDialog dialog(Owner(), title, Q(folder));
  dialog.setOption(QFileDialog::DontUseNativeDialog);  // native ones refuse a name that does not exist yet
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(title == kSaveTitle ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(FilterTexts(filter));
  if (Run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().first().toStdString();
}

}  // namespace lobegraph
