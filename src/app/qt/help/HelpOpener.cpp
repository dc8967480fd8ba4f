#include "app/qt/help/HelpOpener.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMessageBox>
#include <utility>

#include "app/qt/help/HelpWindow.h"

namespace lobegraph {
namespace {

constexpr const char* kGuideType = "application/vnd.ms-htmlhelp";

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The window's own name, else the kinds of box that it is.
std::optional<std::string_view> PageOfWindow(const QWidget& window) {
  if (const auto page = HelpPageOf(window.objectName().toStdString())) return page;
  for (const QMetaObject* kind = window.metaObject(); kind != nullptr; kind = kind->superClass())
    if (const auto page = HelpPageOf(kind->className())) return page;
  return std::nullopt;
}

QString MessageOf(const QWidget& window) {
  const auto* box = qobject_cast<const QMessageBox*>(&window);
  return box == nullptr ? QString() : box->text();
}

}  // namespace

HelpOpener::HelpOpener(QObject& application, QString helpFile)
    : QObject(&application), helpFile_(std::move(helpFile)) {
  application.installEventFilter(this);
}

HelpOpener::Place HelpOpener::PlaceOf(const QWidget& widget) {
  for (const QWidget* part = &widget; part != nullptr; part = part->parentWidget())
    if (part->isWindow())
      if (const auto page = PageOfWindow(*part))
        return {*page, QString::fromStdString(HelpAnchorOf(MessageOf(*part).toStdString()))};
  return {kFirstHelpPage, ""};
}

bool HelpOpener::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  if (qobject_cast<HelpWindow*>(widget->window()) == nullptr && !key.isAutoRepeat())
    Open(PlaceOf(*widget), *widget->window());
  return true;
}

void HelpOpener::Open(const Place& place, QWidget& from) {
  from_ = &from;
  if (!QFile::exists(helpFile_)) return OpenOwn(place);
  // Asked without waiting: a turn may be running.
  auto* question = new QProcess(this);
  connect(question, &QProcess::finished, this, [this, question, place] {
    OpenWith(QString::fromUtf8(question->readAllStandardOutput()).trimmed(), place);
    question->deleteLater();
  });
  connect(question, &QProcess::errorOccurred, this, [this, question, place](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    OpenWith("", place);
    question->deleteLater();
  });
  question->start("xdg-mime", {"query", "default", kGuideType});
}

void HelpOpener::OpenWith(const QString& desktopFile, const Place& place) {
  QStringList command;
  for (const std::string& word :
       ViewerCommand(desktopFile.toStdString(), helpFile_.toStdString(), place.Page))
    command << QString::fromStdString(word);
  if (command.isEmpty()) return OpenOwn(place);
  const QString program = command.takeFirst();
  if (!QProcess::startDetached(program, command)) OpenOwn(place);
}

/// Opened from a box that keeps the other windows waiting, the guide belongs to that box, and goes with it.
void HelpOpener::OpenOwn(const Place& place) {
  QWidget* owner = QApplication::activeModalWidget();
  if (owner == nullptr)
    for (owner = from_; owner != nullptr && owner->parentWidget() != nullptr;) owner = owner->parentWidget();
  HelpWindow::Of(owner).Show(Q(place.Page), place.Anchor);
}

}  // namespace lobegraph
