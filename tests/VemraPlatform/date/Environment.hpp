#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vemra::testing {

/// Sets or removes a variable of the process's environment, and restores it in the destructor.
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
