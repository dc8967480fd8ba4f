// The input chooser and the meter window as widgets.
#include "app/qt/input/ChooserDialog.h"

#include <QAccessible>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "app/qt/input/MeterForm.h"
#include "support/ChooserFakes.h"
#include "support/RecordingStore.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

struct DialogRig : test::ChooserWorld {
  TemporaryFolder Computer;
  RecordingStore Store;
  ComPorts Ports{Store, Computer.Path()};
  InputChoice& Choice = Shared.Settings.Input;
  std::unique_ptr<ChooserDialog> Dialog;

  void Open(const InputChoice& choice) {
    Choice = choice;
    Dialog = std::make_unique<ChooserDialog>(Parts, Store, Ports, nullptr);
    Dialog->show();
    Store.Log.clear();
  }
  template <typename Widget>
  Widget& Find(const char* name) const {
    return *Dialog->findChild<Widget*>(name);
  }
  void Press(const char* name) const { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
};

TEST(ChooserDialog, ShowsTheOptionsInTheirOrderOnScreen) {
  DialogRig rig;
  rig.Open({});
  EXPECT_EQ(rig.Dialog->windowTitle(), "Lobegraph - Choose Input");
  std::vector<std::string> groups, options;
  for (const auto* group : rig.Dialog->findChildren<QGroupBox*>())
    groups.push_back(group->title().toStdString());
  EXPECT_THAT(groups, ::testing::UnorderedElementsAre(" Signal input device ", " Comm port number ",
                                                      " External triggering ", " Comm port number "));
  auto buttons = rig.Dialog->findChildren<QRadioButton*>();
  std::sort(buttons.begin(), buttons.end(), [&](const QRadioButton* a, const QRadioButton* b) {
    return a->mapTo(rig.Dialog.get(), QPoint()).y() < b->mapTo(rig.Dialog.get(), QPoint()).y();
  });
  for (const auto* button : buttons) options.push_back(button->text().toStdString());
  EXPECT_THAT(options, ElementsAre("Line-in", "Microphone", "TARVEN meter without using TarvenMeter program",
                                   "ROSKA Wattscan meter", "LP-100-VCP or TarvenMeter or GaugeBridge",
                                   "Use the CTS pin of a COM port (choose 0 if no ext triggering)",
                                   "Use the DLP USB device"));
  EXPECT_EQ(rig.Find<QPushButton>("cmdOk").text(), "&OK");
  EXPECT_EQ(rig.Find<QPushButton>("cmdCancel").text(), "&Cancel");
}

TEST(ChooserDialog, AClickedMeterShowsItsPortListAndOkSavesWhatIsSelected) {
  DialogRig rig;
  rig.Open({});
  EXPECT_FALSE(rig.Find<QGroupBox>("frmMeterCom").isVisible());
  rig.Find<QRadioButton>("optInput3").click();
  EXPECT_TRUE(rig.Find<QGroupBox>("frmMeterCom").isVisible());
  EXPECT_TRUE(rig.Choice.ROSKAmeter);
  rig.Press("cmdOk");
  EXPECT_EQ(rig.Dialogs.Texts.size(), 1U) << "no port is chosen yet";
  EXPECT_TRUE(rig.Dialog->isVisible());
  rig.Find<QComboBox>("cboCommPort").setCurrentText("5");
  rig.Press("cmdOk");
  EXPECT_FALSE(rig.Dialog->isVisible());
  EXPECT_EQ(rig.Store.Held("Commport"), "5");
  EXPECT_EQ(rig.Store.Held("ROSKAmeter"), "True");
}

TEST(ChooserDialog, AnOptionTickedThroughAScreenReaderCountsAsClicked) {
  DialogRig rig;
  rig.Open({.Commtrigger = 4});
  const auto tick = [](QRadioButton& option) {
    auto* actions = QAccessible::queryAccessibleInterface(&option)->actionInterface();
    actions->doAction(actions->actionNames().constFirst());
  };
  tick(rig.Find<QRadioButton>("optInput3"));
  EXPECT_TRUE(rig.Choice.ROSKAmeter);
  tick(rig.Find<QRadioButton>("optTrigger0"));
  EXPECT_FALSE(rig.Find<QComboBox>("cboComTrigger").isEnabled());
}

class Leaving : public ::testing::TestWithParam<int> {};
TEST_P(Leaving, TakesTheClicksBack) {
  DialogRig rig;
  rig.Open({});
  rig.Find<QRadioButton>("optInput2").click();
  EXPECT_TRUE(rig.Choice.InputDeviceIsdBMeter);
  if (GetParam() == 0) rig.Press("cmdCancel");
  if (GetParam() == 1) QTest::keyClick(rig.Dialog.get(), Qt::Key_Escape);
  if (GetParam() == 2) rig.Dialog->close();
  EXPECT_FALSE(rig.Dialog->isVisible());
  EXPECT_EQ(rig.Choice, InputChoice{});
  EXPECT_EQ(rig.Store.Held("InputDeviceIsdBMeter"), "");
}
INSTANTIATE_TEST_SUITE_P(ByCancelEscapeAndCloseBox, Leaving, ::testing::Values(0, 1, 2));

TEST(ChooserDialog, TheUsbTriggerDisablesThePortList) {
  DialogRig rig;
  rig.Open({.Commtrigger = 4});
  auto& list = rig.Find<QComboBox>("cboComTrigger");
  EXPECT_EQ(list.currentText(), "4");
  EXPECT_EQ(list.count(), 33);
  rig.Find<QRadioButton>("optTrigger0").click();
  EXPECT_EQ(list.currentText(), "0");
  EXPECT_FALSE(list.isEnabled());
  rig.Find<QRadioButton>("optTrigger1").click();
  EXPECT_TRUE(list.isEnabled());
}

TEST(ChooserDialog, TheMenuGivesAnAttachedAdapterToTheNumber) {
  DialogRig rig;
  std::filesystem::create_directories(rig.Computer.Path() / "dev");
  std::ofstream(rig.Computer.Path() / "dev" / "ttyUSB7").flush();
  rig.Open({.InputDeviceIsLineIn = false, .InputDeviceIsdBMeter = true, .Commport = 2});
  auto& title = rig.Find<QLabel>("cboCommPortTitle");
  EXPECT_EQ(title.text(), "nothing is there now");
  QMenu& menu = *rig.Find<QToolButton>("cboCommPortMenu").menu();
  Q_EMIT menu.aboutToShow();
  ASSERT_EQ(menu.actions().size(), 1);
  EXPECT_EQ(menu.actions().first()->text(), "ttyUSB7");
  menu.actions().first()->trigger();
  EXPECT_EQ(title.text(), "ttyUSB7");
  rig.Press("cmdOk");
  EXPECT_EQ(rig.Store.Values["Lobegraph/Ports/COM2"], "/dev/ttyUSB7");
}

TEST(ChooserDialog, WithoutAdaptersTheMenuSaysSo) {
  DialogRig rig;
  rig.Open({});
  QMenu& menu = *rig.Find<QToolButton>("cboComTriggerMenu").menu();
  Q_EMIT menu.aboutToShow();
  ASSERT_EQ(menu.actions().size(), 1);
  EXPECT_EQ(menu.actions().first()->text(), "No adapter is attached");
  EXPECT_FALSE(menu.actions().first()->isEnabled());
}

TEST(MeterWindow, LoadsOnceHidesWhenClosedAndTakesWritesMeanwhile) {
  MeterForm form;
  const QSignalSpy loads(&form, &MeterForm::FormLoad);
  form.SetStatusText("before it is shown");
  form.ShowWindow();
  EXPECT_EQ(form.findChild<QLabel*>("lblStatus")->text(), "before it is shown");
  form.close();
  EXPECT_FALSE(form.isVisible());
  form.SetStatusText("while hidden");
  form.SetReading("345");
  form.SetDownDb(25.52F);
  form.SetStateCount("1234");
  form.ShowCalibration("-168");
  form.PaintStatusShape(StatusColour::Red);
  form.PaintLevelIndicator(StatusColour::Green);
  form.ShowWindow();
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(loads.count(), 1);
  const auto text = [&](const char* name) { return form.findChild<QLabel*>(name)->text().toStdString(); };
  EXPECT_EQ(text("lblStatus"), "while hidden");
  EXPECT_EQ(text("lblReading"), "345");
  EXPECT_EQ(text("lblDownDb"), "25.5");
  EXPECT_EQ(text("lblStateCount"), "1234");
  EXPECT_EQ(text("lblCalAdjust0dB"), "-168");
  const auto shade = [&](const char* name) {
    return form.findChild<QFrame*>(name)->palette().color(QPalette::Window).name().toStdString();
  };
  EXPECT_EQ(shade("shpStatus"), "#ff0000");
  EXPECT_EQ(shade("shpLevel"), "#00ff00");
  form.SetReadingDbm(-30.04F);
  EXPECT_EQ(text("lblReading"), "-30.0");
}

TEST(MeterWindow, TheCalibrateButtonIsHeard) {
  MeterForm form;
  const QSignalSpy clicks(&form, &MeterForm::cmdCalCurrentClick);
  auto& button = *form.findChild<QPushButton*>("cmdCalCurrent");
  EXPECT_EQ(button.text(), "Calibrate the current reading as 0dB");
  button.click();
  EXPECT_EQ(clicks.count(), 1);
}

}  // namespace
}  // namespace lobegraph
