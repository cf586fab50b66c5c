#include "VemraPlatform/ui/Environment.hpp"

#include "VemraPlatform/date/AbbreviatedDate.hpp"

namespace vemra::ui {

Environment Environment::system() {
  Environment environment;
  environment.locale = date::systemLocale();
  environment.timeZone = date::systemTimeZone();
  return environment;
}

}  // namespace vemra::ui
