#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace lobegraph {

/// A variable of the environment, put back at the end.
class Variable {
 public:
  /// @param value null: it is not set
  Variable(const char* name, const char* value) : name_(name) {
    const char* before = std::getenv(name);
    if (before != nullptr) before_ = before;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace lobegraph
