#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace lobegraph {

/// A variable of the environment while the object lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = getenv(name)) before_ = before;
    setenv(name, value, 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace lobegraph
