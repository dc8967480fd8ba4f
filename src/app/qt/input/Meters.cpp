#include "app/qt/input/Meters.h"

#include "app/parts/ErrorEdge.h"
#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr int kBetweenPollsUs = 200;
constexpr int kOneSecondMs = 1000;

}  // namespace

Meters::Meters(Globals& shared, SettingsStore& store, SystemClock& clock, UserMessages& messages)
    : shared_(shared),
      store_(store),
      ports_(store),
      MSComm1_(ports_),
      MSCommTrigger_(ports_),
      messages_(messages),
      usb_(ftdi_, frmdBMeter_, shared.Run, messages),
      meter_(shared.Meter, shared.Settings, frmdBMeter_, clock),
      external_(store, meter_, shared.Meter, frmdBMeter_, clock),
      devices_({MSComm1_, MSCommTrigger_, usb_, frmdBMeter_, meter_, shared.Meter, shared.Run,
                shared.Settings, messages}),
      line_({shared.Settings.Input, MSComm1_, MSCommTrigger_, usb_, shared.Run,
             [&clock] { clock.SleepMicroseconds(kBetweenPollsUs); }}) {
  Connect();
}

void Meters::Connect() {
  MSComm1_.OnComm = [this, parse = MSComm1_.OnComm](int eventCode) {
    Guarded(messages_, "MSComm1_OnComm", [&] { parse(eventCode); });
  };
  QObject::connect(&frmdBMeter_, &MeterForm::FormLoad, &frmdBMeter_,
                   [this] { frmdBMeter_.ShowCalibration(StoreText(shared_.Settings.dBCalAdjust0dB)); });
  QObject::connect(&frmdBMeter_, &MeterForm::cmdCalCurrentClick, &frmdBMeter_, [this] {
    frmdBMeter_.ShowCalibration(CalibrateCurrent(shared_.Meter, shared_.Settings, store_));
  });
  QObject::connect(&tmrOneSec_, &QTimer::timeout, &frmdBMeter_,
                   [this] { tmrOneSec_Timer(line_.UsbStateCount, frmdBMeter_); });
  tmrOneSec_.start(kOneSecondMs);
}

}  // namespace lobegraph
