#include "rotator/hamlib/HamlibRotator.h"

#include <hamlib/rotator.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <string>

namespace lobegraph {
namespace {

constexpr double kFarthestDeg = 1080;  ///< no mast turns three times round

RotatorModel::Reached ReachedBy(int port) {
  switch (port) {
    case RIG_PORT_NONE:
      return RotatorModel::Reached::Directly;
    case RIG_PORT_SERIAL:
      return RotatorModel::Reached::Serial;
    case RIG_PORT_NETWORK:
    case RIG_PORT_UDP_NETWORK:
      return RotatorModel::Reached::Network;
    default:
      return RotatorModel::Reached::Otherwise;
  }
}

RotatorFault FaultOf(int code) {
  switch (-code) {
    case RIG_ETIMEOUT:
      return RotatorFault::NoAnswer;
    case RIG_EIO:
    case RIG_ECONF:
    case RIG_BUSERROR:
    case RIG_EPOWER:
      return RotatorFault::NobodyThere;
    case RIG_EPROTO:
    case RIG_ETRUNC:
      return RotatorFault::Nonsense;
    case RIG_EINVAL:
    case RIG_EDOM:
      return RotatorFault::OutOfRange;
    case RIG_ERJCTED:
      return RotatorFault::Refused;
    case RIG_ENAVAIL:
    case RIG_ENIMPL:
      return RotatorFault::CannotDoThat;
    case RIG_BUSBUSY:
      return RotatorFault::Busy;
    case RIG_ESECURITY:
      return RotatorFault::NoRight;
    default:
      return RotatorFault::Inside;
  }
}

void Check(int code) {
  if (code != RIG_OK) throw DeviceFault(FaultOf(code));
}

/// The library says "input or output error" for all of them.
RotatorFault OpeningFault(int code, const std::string& path, int error) {
  const RotatorFault fault = FaultOf(code);
  if (fault != RotatorFault::NobodyThere || path.empty() || path.front() != '/') return fault;
  if (access(path.c_str(), R_OK | W_OK) != 0 && errno == EACCES) return RotatorFault::NoRight;
  return error == EBUSY || error == EWOULDBLOCK ? RotatorFault::Busy : fault;
}

int AddModel(const rot_caps* caps, void* models) {
  static_cast<std::vector<RotatorModel>*>(models)->push_back(
      {static_cast<int>(caps->rot_model), ReachedBy(caps->port_type), caps->mfg_name, caps->model_name});
  return 1;
}

RotatorAbilities AbilitiesOf(const ROT& rotator) {
  const rot_caps& caps = *rotator.caps;
  RotatorAbilities can;
  can.Position = caps.get_position != nullptr;
  can.GoTo = caps.set_position != nullptr;
  can.Turn = caps.move != nullptr;
  can.Stop = caps.stop != nullptr || (can.Position && can.GoTo);
  can.Park = caps.park != nullptr;
  can.LowestDeg = rotator.state.min_az;
  can.HighestDeg = rotator.state.max_az;
  const bool senseless =
      !(can.LowestDeg >= -kFarthestDeg && can.HighestDeg <= kFarthestDeg) || can.LowestDeg >= can.HighestDeg;
  if (senseless) throw DeviceFault(RotatorFault::Nonsense);
  return can;
}

}  // namespace

void HamlibRotator::Release::operator()(s_rot* rotator) const { rot_cleanup(rotator); }

HamlibRotator::HamlibRotator() {
  rig_set_debug(RIG_DEBUG_NONE);
  rot_load_all_backends();
}

HamlibRotator::~HamlibRotator() = default;

std::vector<RotatorModel> HamlibRotator::Models() {
  std::vector<RotatorModel> models;
  rot_list_foreach(AddModel, &models);
  std::sort(models.begin(), models.end(),
            [](const RotatorModel& a, const RotatorModel& b) { return a.Number < b.Number; });
  return models;
}

RotatorAbilities HamlibRotator::Open(const RotatorChoice& choice) {
  Close();
  rotator_.reset(rot_init(static_cast<rot_model_t>(choice.Model)));
  if (!rotator_) throw DeviceFault(RotatorFault::UnknownModel);
  if (!choice.Port.empty()) Set("rot_pathname", choice.Port);
  if (choice.Baud > 0) Set("serial_speed", std::to_string(choice.Baud));
  // One late answer is answered by the next question: a repetition would only delay the stop behind it.
  if (ReachedBy(rotator_->caps->port_type) == RotatorModel::Reached::Network) Set("retry", "0");
  errno = 0;
  if (const int code = rot_open(rotator_.get()); code != RIG_OK) {
    const RotatorFault fault = OpeningFault(code, choice.Port, errno);
    rotator_.reset();
    throw DeviceFault(fault);
  }
  return AbilitiesOf(*rotator_);
}

void HamlibRotator::Set(const char* name, const std::string& value) {
  Check(rot_set_conf(rotator_.get(), rot_token_lookup(rotator_.get(), name), value.c_str()));
}

void HamlibRotator::Close() {
  if (rotator_) rot_close(rotator_.get());
  rotator_.reset();
}

double HamlibRotator::Position() {
  azimuth_t azimuth = 0;
  elevation_t elevation = 0;
  Check(rot_get_position(rotator_.get(), &azimuth, &elevation));
  if (!(std::abs(azimuth) <= kFarthestDeg)) throw DeviceFault(RotatorFault::Nonsense);
  const rot_state& state = rotator_->state;
  if (elevation >= state.min_el && elevation <= state.max_el) elevationDeg_ = elevation;
  return azimuth;
}

void HamlibRotator::GoTo(double deg) {
  const rot_state& state = rotator_->state;
  const float elevation = std::max(state.min_el, std::min(elevationDeg_, state.max_el));
  Check(rot_set_position(rotator_.get(), static_cast<azimuth_t>(deg), elevation));
}

void HamlibRotator::Turn(TurnSense sense) {
  Check(rot_move(rotator_.get(), sense == TurnSense::Left ? ROT_MOVE_LEFT : ROT_MOVE_RIGHT,
                 ROT_SPEED_NOCHANGE));
}

void HamlibRotator::Stop() {
  if (rotator_->caps->stop != nullptr) return Check(rot_stop(rotator_.get()));
  GoTo(Position());
}

void HamlibRotator::Park() { Check(rot_park(rotator_.get())); }

}  // namespace lobegraph
