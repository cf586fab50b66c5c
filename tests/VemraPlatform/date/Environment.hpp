#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vemra::testing {

/// Sets a variable of the process's environment, or takes it away, and puts things back at the end.
class Environment {
 public:
  Environment(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  ~Environment() { set(before_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  void set(const std::optional<std::string>& value) {
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace vemra::testing
