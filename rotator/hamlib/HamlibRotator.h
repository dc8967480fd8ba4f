#pragma once

#include <memory>
#include <vector>

#include "rotator/RotatorDevice.h"

struct s_rot;

namespace lobegraph {

/// A rotator through hamlib.
class HamlibRotator final : public RotatorDevice {
 public:
  HamlibRotator();
  ~HamlibRotator() override;
  HamlibRotator(const HamlibRotator&) = delete;
  HamlibRotator& operator=(const HamlibRotator&) = delete;

  std::vector<RotatorModel> Models() override;
  RotatorAbilities Open(const RotatorChoice& choice) override;
  void Close() override;
  double Position() override;
  void GoTo(double deg) override;
  void Turn(TurnSense sense) override;
  /// A model that knows no stop is told to go where it is.
  void Stop() override;
  void Park() override;

 private:
  void Set(const char* name, const std::string& value);

  struct Release {
    void operator()(s_rot* rotator) const;
  };
  std::unique_ptr<s_rot, Release> rotator_;
  float elevationDeg_ = 0;  ///< stays where it is when the bearing changes
};

}  // namespace lobegraph
