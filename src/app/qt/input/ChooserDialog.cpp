#include "app/qt/input/ChooserDialog.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "acquisition/meters/LevelSource.h"

namespace lobegraph {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// An option of a group, by its index; on screen in the order in which they are added.
void AddOption(QButtonGroup& options, QBoxLayout& box, const QString& name, std::string_view caption,
               int index) {
  auto* option = new QRadioButton(Q(caption));
  option->setObjectName(name + QString::number(index));
  options.addButton(option, index);
  box.addWidget(option);
}

}  // namespace

ChooserDialog::ChooserDialog(const AppParts& parts, SettingsStore& store, ComPorts& ports, QWidget* owner)
    : QDialog(owner),
      form_(parts, store, ports, *this),
      optInput_(new QButtonGroup(this)),
      optTrigger_(new QButtonGroup(this)) {
  setObjectName("frmChooseInput");
  setWindowTitle(chooser::kCaption);
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(MakeInputGroup());
  whole->addWidget(MakeMeterCom());
  whole->addWidget(MakeTriggerGroup());
  auto* buttons = new QHBoxLayout;
  auto* ok = new QPushButton("&OK", this);
  ok->setObjectName("cmdOk");
  ok->setDefault(true);
  auto* cancel = new QPushButton("&Cancel", this);
  cancel->setObjectName("cmdCancel");
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
  form_.Form_Load();
  connect(ok, &QPushButton::clicked, this, [this] { form_.cmdOK_Click(); });
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
  // A screen reader ticks an option without a click.
  connect(optInput_, &QButtonGroup::idToggled, this, [this](int index, bool ticked) {
    if (ticked) form_.optInput_Click(index);
  });
  connect(optTrigger_, &QButtonGroup::idToggled, this, [this](int index, bool ticked) {
    if (ticked) form_.optTrigger_Click(index);
  });
  connect(cboCommPort_, &QComboBox::currentTextChanged, this,
          [this](const QString& number) { form_.CommPort_Change(number.toStdString()); });
  connect(cboComTrigger_, &QComboBox::currentTextChanged, this,
          [this](const QString& number) { form_.ComTrigger_Change(number.toStdString()); });
}

void ChooserDialog::reject() { form_.cmdCancel_Click(); }

QGroupBox* ChooserDialog::MakeInputGroup() {
  auto* group = new QGroupBox(chooser::kInputGroup, this);
  auto* box = new QVBoxLayout(group);
  const std::span<const LevelSource> sources = LevelSources();
  for (int place = 0; place < static_cast<int>(sources.size()); ++place) {
    const int index = place < 2 ? 1 - place : place;  // line-in is what most people use
    AddOption(*optInput_, *box, "optInput", sources[static_cast<std::size_t>(index)].Caption, index);
  }
  return group;
}

QGroupBox* ChooserDialog::MakeMeterCom() {
  frmMeterCom_ = new QGroupBox(chooser::kPortGroup, this);
  frmMeterCom_->setObjectName("frmMeterCom");
  auto* box = new QVBoxLayout(frmMeterCom_);
  box->addWidget(new QLabel(chooser::kMeterPortLabel));
  const PortRow row =
      MakePortRow(*frmMeterCom_, "cboCommPort", "Meter's COM port", &frmChooseInput::AssignMeterPort);
  cboCommPort_ = row.List;
  meterPortTitle_ = row.Title;
  return frmMeterCom_;
}

QGroupBox* ChooserDialog::MakeTriggerGroup() {
  auto* group = new QGroupBox(chooser::kTriggerGroup, this);
  auto* box = new QVBoxLayout(group);
  for (const int index : {chooser::kCts, chooser::kUsb})
    AddOption(*optTrigger_, *box, "optTrigger", chooser::kTriggers[index], index);
  auto* ports = new QGroupBox(chooser::kPortGroup, group);
  new QVBoxLayout(ports);
  box->addWidget(ports);
  const PortRow row =
      MakePortRow(*ports, "cboComTrigger", "Trigger's COM port", &frmChooseInput::AssignTriggerPort);
  cboComTrigger_ = row.List;
  triggerPortTitle_ = row.Title;
  return group;
}

ChooserDialog::PortRow ChooserDialog::MakePortRow(QGroupBox& group, const char* listName,
                                                  const char* accessibleName, Assigner assign) {
  auto* list = new QComboBox(&group);
  list->setObjectName(listName);
  list->setAccessibleName(accessibleName);
  auto* title = new QLabel(&group);
  title->setObjectName(QString(listName) + "Title");
  title->setAccessibleName(QString(accessibleName) + " now");
  title->setTextFormat(Qt::PlainText);
  title->setMinimumWidth(240);
  auto* button = new QToolButton(&group);
  button->setObjectName(QString(listName) + "Menu");
  button->setText("Adapters");
  button->setAccessibleName(QString(accessibleName) + " adapters");
  button->setToolTip("Give an attached adapter to this number, so that swapped plugs do not matter");
  button->setPopupMode(QToolButton::InstantPopup);
  auto* menu = new QMenu(button);
  button->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu, assign] { FillAdapterMenu(*menu, assign); });
  auto* row = new QHBoxLayout;
  row->addWidget(list);
  row->addWidget(title, 1);
  row->addWidget(button);
  static_cast<QVBoxLayout*>(group.layout())->addLayout(row);
  return {list, title};
}

void ChooserDialog::FillAdapterMenu(QMenu& menu, Assigner assign) {
  menu.clear();
  for (const PortAdapter& adapter : form_.Adapters())
    menu.addAction(Q(adapter.Title).replace('&', "&&"), this,
                   [this, assign, path = adapter.Path] { (form_.*assign)(path); });
  if (menu.isEmpty()) menu.addAction("No adapter is attached")->setEnabled(false);
}

/// What the program shows is no click of the user.
void ChooserDialog::Show(const ChooserShown& shown) {
  const QSignalBlocker blockers[] = {QSignalBlocker(optInput_), QSignalBlocker(optTrigger_),
                                     QSignalBlocker(cboCommPort_), QSignalBlocker(cboComTrigger_)};
  optInput_->button(shown.Input)->setChecked(true);
  optTrigger_->button(shown.Trigger)->setChecked(true);
  frmMeterCom_->setVisible(shown.MeterComShown);
  ShowList(*cboCommPort_, shown.CommPorts, shown.CommPort);
  ShowList(*cboComTrigger_, shown.ComTriggers, shown.ComTrigger);
  cboComTrigger_->setEnabled(shown.ComTriggerEnabled);
  ShowTitle(*meterPortTitle_, shown.CommPortTitle);
  ShowTitle(*triggerPortTitle_, shown.ComTriggerTitle);
}

void ChooserDialog::ShowList(QComboBox& list, const std::vector<std::string>& entries,
                             const std::string& selected) {
  if (list.count() == 0)
    for (const std::string& entry : entries) list.addItem(Q(entry));
  list.setCurrentIndex(list.findText(Q(selected), Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void ChooserDialog::ShowTitle(QLabel& title, const std::string& text) {
  title.setText(Q(text));
  title.setAccessibleDescription(Q(text));
}

}  // namespace lobegraph
