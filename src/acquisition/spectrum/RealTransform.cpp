#include "acquisition/spectrum/RealTransform.h"

#include <fftw3.h>

#include <algorithm>

namespace lobegraph {

/// Planning is made safe for threads by the library's own lock; executing is safe on buffers of one's own.
struct RealTransform::Plan {
  explicit Plan(std::size_t samples)
      : Size(samples), In(fftwf_alloc_real(samples)), Out(fftwf_alloc_complex(samples / 2 + 1)) {
    fftwf_make_planner_thread_safe();
    Made = fftwf_plan_dft_r2c_1d(static_cast<int>(samples), In, Out, FFTW_ESTIMATE);
  }
  ~Plan() {
    fftwf_destroy_plan(Made);
    fftwf_free(Out);
    fftwf_free(In);
  }
  Plan(const Plan&) = delete;
  Plan& operator=(const Plan&) = delete;

  std::size_t Size;
  float* In;
  fftwf_complex* Out;
  fftwf_plan Made = nullptr;
};

RealTransform::RealTransform(std::size_t size) : plan_(std::make_unique<Plan>(size)) {}
RealTransform::~RealTransform() = default;
RealTransform::RealTransform(RealTransform&&) noexcept = default;
RealTransform& RealTransform::operator=(RealTransform&&) noexcept = default;

std::size_t RealTransform::Size() const { return plan_->Size; }

void RealTransform::AddPower(std::span<const float> samples, std::span<double> sum) {
  const std::span<float> in(plan_->In, plan_->Size);
  const std::size_t given = std::min(samples.size(), in.size());
  std::copy_n(samples.begin(), given, in.begin());
  std::fill(in.begin() + static_cast<std::ptrdiff_t>(given), in.end(), 0.0F);
  fftwf_execute(plan_->Made);
  for (std::size_t line = 0; line < sum.size(); ++line) {
    const double real = plan_->Out[line][0];
    const double imaginary = plan_->Out[line][1];
    sum[line] += real * real + imaginary * imaginary;
  }
}

}  // namespace lobegraph
