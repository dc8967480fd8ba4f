#include "rotator/DeviceOrders.h"

namespace lobegraph {

using Kind = RotatorOrder::Kind;

void DeviceOrders::Obey(const RotatorOrder& order) {
  if (order.What == Kind::List) return List();
  try {
    Carry(order);
    tell_(told::Done{order.Number});
  } catch (const DeviceFault& fault) {
    tell_(told::Failed{order.Number, fault.Why()});
  }
}

void DeviceOrders::List() {
  for (const RotatorModel& model : device_.Models()) tell_(model);
  tell_(told::ListEnds{});
}

void DeviceOrders::Carry(const RotatorOrder& order) {
  if (order.What == Kind::Open) return Open(order.Choice);
  if (!open_) throw DeviceFault(RotatorFault::NobodyThere);
  switch (order.What) {
    case Kind::GoTo:
      driven_ = true;  // before the call: one that fails may have set it in motion
      return device_.GoTo(order.Deg);
    case Kind::Left:
    case Kind::Right:
      driven_ = true;
      return device_.Turn(order.What == Kind::Left ? TurnSense::Left : TurnSense::Right);
    case Kind::Park:
      driven_ = true;
      return device_.Park();
    case Kind::Stop:
      return Stop();
    case Kind::Close:
      open_ = false;
      return device_.Close();
    default:
      break;
  }
}

void DeviceOrders::Open(const RotatorChoice& choice) {
  open_ = false;
  choice_ = choice;
  can_ = device_.Open(choice);
  open_ = true;
  tell_(can_);
}

void DeviceOrders::Stop() {
  driven_ = true;  // until it was carried out
  device_.Stop();
  driven_ = false;
}

void DeviceOrders::AskPosition() {
  if (!open_) return;
  try {
    const double asked = clockS_();
    const double deg = device_.Position();
    tell_(RotatorPosition{(asked + clockS_()) / 2, deg});
  } catch (const DeviceFault& fault) {
    tell_(told::NoPosition{fault.Why()});
  }
}

bool DeviceOrders::StopWhatMoves() {
  if (!driven_ || !choice_) return true;
  try {
    if (!open_) Open(*choice_);
    Stop();
  } catch (const DeviceFault&) {
    open_ = false;
  }
  return !driven_;
}

}  // namespace lobegraph
