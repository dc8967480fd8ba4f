// The meters as the program puts them together: the meter window's figures, its calibration and the poll
// count.
#include "app/qt/input/Meters.h"

#include <gmock/gmock.h>
#include <pty.h>
#include <unistd.h>

#include <QTest>

#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct MetersRig {
  Globals Shared;
  RecordingStore Store;
  SystemClock Time;
  test::ShownMessages Messages;
  Meters Devices{Shared, Store, Time, Messages};

  std::string Text(const char* label) {
    return Devices.frmdBMeter().findChild<QLabel*>(label)->text().toStdString();
  }
};

TEST(Meters, TheMeterWindowShowsTheStoredCalibration) {
  MetersRig rig;
  rig.Shared.Settings.dBCalAdjust0dB = -168.5F;
  rig.Devices.Devices().ShowMeterWindow();
  EXPECT_EQ(rig.Text("lblCalAdjust0dB"), "-168.5");
}

TEST(Meters, CalibratingMakesThePresentMeanZeroDecibelsDown) {
  MetersRig rig;
  rig.Devices.Devices().ShowMeterWindow();
  EXPECT_EQ(rig.Text("lblCalAdjust0dB"), "0");
  rig.Shared.Meter.MeterAverage = 432.4F;
  rig.Devices.frmdBMeter().findChild<QPushButton*>("cmdCalCurrent")->click();
  EXPECT_EQ(rig.Text("lblCalAdjust0dB"), "-168");
  EXPECT_EQ(rig.Shared.Settings.dBCalAdjust0dB, -168.0F);
  EXPECT_THAT(rig.Store.Log, ::testing::Contains("save dBCalAdjust0dB=-168"));
}

TEST(Meters, OnceASecondTheWindowShowsThePollsWithoutAnyRun) {
  MetersRig rig;
  for (int i = 0; i < 3; ++i) rig.Devices.Line().ReadTriggerState();
  EXPECT_TRUE(QTest::qWaitFor([&] { return rig.Text("lblStateCount") == "3"; }, 5000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return rig.Text("lblStateCount") == "0"; }, 5000));
}

TEST(Meters, AFaultWhileReceivingIsOneBoxWithItsPlace) {
  MetersRig rig;
  int master = -1, slave = -1;
  char path[64] = {};
  ASSERT_EQ(openpty(&master, &slave, path, nullptr, nullptr), 0);
  rig.Store.Values["Lobegraph/Ports/COM5"] = path;
  rig.Shared.Settings.Input.InputDeviceIsdBMeter = rig.Shared.Settings.Input.ROSKAmeter = true;
  rig.Shared.Meter.Received.MeterReadingCount = 2147483647;
  rig.Devices.Devices().OpenMeterPort(5, "9600");
  ASSERT_TRUE(rig.Devices.MSComm1().PortOpen());
  ASSERT_EQ(write(master, "123;", 4), 4);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !rig.Messages.Texts.empty(); }, 5000));
  EXPECT_THAT(rig.Messages.Texts, ElementsAre(HasSubstr("Error 6 (Overflow)")));
  rig.Devices.Devices().CloseMeterPort();
  close(slave);
  close(master);
}

}  // namespace
}  // namespace lobegraph
