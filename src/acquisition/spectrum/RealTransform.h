#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace lobegraph {

/// The discrete Fourier transform of real samples, planned once for its size. Each object has buffers of its
/// own: one thread at a time. Objects may be made on any thread.
class RealTransform {
 public:
  /// @param size samples of one transform, even
  explicit RealTransform(std::size_t size);
  ~RealTransform();
  RealTransform(RealTransform&&) noexcept;
  RealTransform& operator=(RealTransform&&) noexcept;

  std::size_t Size() const;
  /// Lines of its spectrum, 0 and half the sample rate included: Size() / 2 + 1.
  std::size_t Lines() const { return Size() / 2 + 1; }
  /// Adds the squared magnitude of each line to sum.
  /// @param samples at most Size(); what is missing is zeros
  /// @param sum Lines() values
  void AddPower(std::span<const float> samples, std::span<double> sum);

 private:
  struct Plan;
  std::unique_ptr<Plan> plan_;
};

}  // namespace lobegraph
