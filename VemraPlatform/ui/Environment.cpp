#include "VemraPlatform/ui/Environment.hpp"

#include "VemraPlatform/date/AbbreviatedDate.hpp"

namespace vemra::ui {

Environment Environment::system() {
  Environment environment;
  environment.locale = date::systemLocale();
  environment.timeZone = date::systemTimeZone();
  return environment;
}

std::string Environment::localized(std::string_view key) const {
  if (strings) {
    if (auto translation = strings->lookup(key)) return *std::move(translation);
  }
  return std::string(key);
}

}  // namespace vemra::ui
