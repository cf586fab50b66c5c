#include "apps/inspect/Case.hpp"

#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/TimeZone.hpp"
#include "apps/documents/JsonReader.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/inspect/CaseStrings.hpp"
#include "apps/inspect/StepReader.hpp"

#include <memory>
#include <utility>

namespace vemra::inspect {
namespace {

using documents::inQuotes;
using documents::JsonReader;

std::string readKnown(JsonReader& in, bool (*isKnown)(std::string_view), const char* expected) {
  std::string name = in.string();
  if (!isKnown(name)) in.fail(expected, inQuotes(name));
  return name;
}

std::shared_ptr<const ui::StringsTable> readStrings(JsonReader& in) {
  auto strings = std::make_shared<CaseStrings>();
  in.dictionary([&](const std::string& key) { strings->add(key, in.string()); });
  if (const auto repeated = strings->putInOrder()) {
    in.failAt(repeated->second,
              repeated->first == repeated->second ? "each key once"
                                                  : "keys that are not canonically equal",
              inQuotes(repeated->second) + " again");
  }
  return strings;
}

}  // namespace

Case readCase(std::string_view text, const std::string& file, ui::Environment defaults) {
  using enum documents::Presence;
  Case read{{}, std::move(defaults), {}};
  ui::Environment& environment = read.environment;
  JsonReader in(text, file);
  const auto locale = [&] {
    environment.locale = readKnown(in, date::isKnownLocale, "a locale that is known");
  };
  const auto timeZone = [&] {
    environment.timeZone = readKnown(in, date::isKnownTimeZone, "a time zone that is known");
  };
  in.object({
      {"result", required, [&] { read.result = documents::readResult(in); }},
      {"locale", optional, locale},
      {"timeZone", optional, timeZone},
      {"strings", optional, [&] { environment.strings = readStrings(in); }},
      {"steps", optional, [&] { in.array([&] { read.steps.push_back(readStep(in)); }); }},
  });
  in.finish();
  return read;
}

}  // namespace vemra::inspect
