#include "apps/inspect/Case.hpp"

#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/TimeZone.hpp"
#include "apps/commandline/Version.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/JsonReader.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/SourceFile.hpp"
#include "apps/inspect/CaseStrings.hpp"
#include "apps/inspect/StepReader.hpp"

#include <array>
#include <cstddef>
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

constexpr std::array<std::string_view, 2> textsNames{"plain", "masked"};

Recorded readRecorded(JsonReader& in) {
  using enum documents::Presence;
  Recorded recorded;
  in.object({
      {"program", required, [&] { recorded.program = in.string(); }},
      {"version", required, [&] { recorded.version = in.string(); }},
      {"texts", required, [&] { recorded.isMasked = in.name(textsNames) == 1; }},
  });
  return recorded;
}

void readInto(Case& read, JsonReader& in) {
  using enum documents::Presence;
  ui::Environment& environment = read.environment;
  const auto locale = [&] {
    environment.locale = readKnown(in, date::isKnownLocale, "a locale that is known");
  };
  const auto timeZone = [&] {
    environment.timeZone = readKnown(in, date::isKnownTimeZone, "a time zone that is known");
  };
  std::size_t screenCount = 1;
  const auto step = [&] { read.steps.push_back(readStep(in, screenCount)); };
  in.object({
      {"result", required, [&] { read.result = documents::readResult(in); }},
      {"locale", optional, locale},
      {"timeZone", optional, timeZone},
      {"strings", optional, [&] { environment.strings = readStrings(in); }},
      {"steps", optional, [&] { in.array(step); }},
      {"recorded", optional, [&] { read.recorded = readRecorded(in); }},
  });
  in.finish();
}

/// `Text` is the text, or the file that has it.
template <class Text>
Case readFrom(Text& text, const std::string& file, ui::Environment defaults) {
  Case read{{}, std::move(defaults), {}, std::nullopt};
  try {
    JsonReader in(text, file);
    readInto(read, in);
  } catch (const documents::DocumentError& error) {
    const auto other = otherVersion(read.recorded);
    if (!other) throw;
    const std::string problem = std::string(error.what()).substr(file.size() + 2);
    throw documents::DocumentError(file, "", problem + "; " + *other);
  }
  return read;
}

}  // namespace

Case readCase(std::string_view text, const std::string& file, ui::Environment defaults) {
  return readFrom(text, file, std::move(defaults));
}

Case readCaseFile(const std::string& path, ui::Environment defaults) {
  documents::SourceFile source(path);
  return readFrom(source, path, std::move(defaults));
}

std::optional<std::string> otherVersion(const std::optional<Recorded>& recorded) {
  if (!recorded || recorded->version == commandline::version()) return std::nullopt;
  return "recorded by " + documents::shortened(recorded->program) + ' ' +
         documents::shortened(recorded->version) + ", this is version " + commandline::version();
}

}  // namespace vemra::inspect
