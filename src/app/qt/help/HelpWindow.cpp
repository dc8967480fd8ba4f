#include "app/qt/help/HelpWindow.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/qt/parts/FontFace.h"

namespace lobegraph {
namespace {
constexpr QSize kSize(840, 660);
}  // namespace

HelpWindow& HelpWindow::Of(QWidget* owner) {
  if (owner != nullptr)
    if (auto* window = owner->findChild<HelpWindow*>("frmHelp", Qt::FindDirectChildrenOnly)) return *window;
  return *new HelpWindow(owner);
}

HelpWindow::HelpWindow(QWidget* owner) : QWidget(owner, Qt::Window), pages_(new QTextBrowser(this)) {
  setObjectName("frmHelp");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle("Lobegraph - Help");
  pages_->setObjectName("txtPage");
  pages_->setAccessibleName("Page");
  auto* all = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  AddButton(*row, "cmdBack", "Back", "Alt+Left", &QTextBrowser::backward);
  AddButton(*row, "cmdForward", "Forward", "Alt+Right", &QTextBrowser::forward);
  AddButton(*row, "cmdContents", "Contents", "Alt+Home", &QTextBrowser::home);
  row->addStretch();
  all->addLayout(row);
  all->addWidget(pages_);
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
  connect(pages_, &QTextBrowser::sourceChanged, this,
          [this] { setWindowTitle(pages_->documentTitle() + " - Lobegraph Help"); });
  ApplyFace(*this, MenuFontFace());
  pages_->setSource(QUrl(QString(kHelpFolder) + "index.html"));  // the first page is where Contents leads
  resize(kSize);
}

void HelpWindow::AddButton(QBoxLayout& row, const char* name, const char* caption, const char* keys,
                           void (QTextBrowser::*action)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(keys);
  button->setShortcut(QKeySequence(keys));
  connect(button, &QPushButton::clicked, pages_, action);
  row.addWidget(button);
}

void HelpWindow::Show(const QString& file, const QString& anchor) {
  QUrl page(kHelpFolder + file);
  if (!anchor.isEmpty()) page.setFragment(anchor);
  pages_->setSource(page);
  show();
  raise();
  activateWindow();
  pages_->setFocus();
}

}  // namespace lobegraph
