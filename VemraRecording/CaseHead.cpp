#include "VemraRecording/CaseHead.hpp"

#include "VemraGoalSurface/presentation/ScreenKeys.hpp"
#include "VemraPlatform/date/Locale.hpp"
#include "VemraPlatform/date/TimeZone.hpp"
#include "apps/documents/JsonWriter.hpp"

namespace vemra::recording {

using documents::JsonWriter;
using documents::Layout;

std::string headText(const CaseHead& head, std::string_view document) {
  const ui::Environment& environment = head.environment;
  JsonWriter out;
  const auto write = [&out](std::string_view key, std::string_view text) {
    out.key(key);
    out.string(text);
  };
  out.beginObject(Layout::lines);
  out.key("recorded");
  out.beginObject(Layout::inLine);
  write("program", head.program);
  write("version", head.version);
  write("texts", head.isMasked ? "masked" : "plain");
  out.endObject();
  // A case cannot name every locale and time zone that a screen may have.
  if (date::isKnownLocale(environment.locale)) write("locale", environment.locale);
  if (date::isKnownTimeZone(environment.timeZone)) write("timeZone", environment.timeZone);
  if (environment.strings) {
    out.key("strings");
    out.beginObject(Layout::lines);
    for (const std::string_view key : goalResultScreenKeys) {
      if (const auto translation = environment.strings->lookup(key)) write(key, *translation);
    }
    out.endObject();
  }
  std::string text = out.take();
  text += ",\n  \"result\": ";
  text += document;
  text += ",\n  \"steps\": [";
  return text;
}

}  // namespace vemra::recording
