#include "apps/desk/store/OutcomeJournal.hpp"

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/JournalFile.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/JsonReader.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace vemra::desk {
namespace {

using documents::JsonReader;
using documents::JsonWriter;
using documents::Layout;
using documents::outcomeValueNames;
using documents::Presence;
using documents::subjectKindNames;

constexpr std::string_view format = "vemra-desk waiting outcomes";
constexpr std::int64_t version = 1;

/// The content of a journal.
struct Content {
  std::vector<WaitingOutcome> waiting;
  std::size_t length = 0;  ///< of its lines with a line feed, in bytes
  std::string last;        ///< a line after them that lacks its line feed only
};

std::string headLine() {
  JsonWriter out;
  out.beginObject(Layout::inLine);
  out.key("format");
  out.string(format);
  out.key("version");
  out.integer(version);
  out.endObject();
  return out.take() + '\n';
}

std::string waitingLine(const WaitingOutcome& outcome) {
  JsonWriter out;
  const auto text = [&out](std::string_view key, const std::string& value) {
    out.key(key);
    out.string(value);
  };
  const auto textOrNull = [&out](std::string_view key, const std::optional<std::string>& value) {
    out.key(key);
    out.stringOrNull(value);
  };
  out.beginObject(Layout::inLine);
  out.key("waiting");
  out.beginObject(Layout::inLine);
  text("id", outcome.id);
  text("goalID", outcome.goalID);
  text("goalTitle", outcome.goalTitle);
  text("subjectName", outcome.subjectName);
  text("subjectKind", std::string(caseName(outcome.input.subjectKind)));
  textOrNull("subjectRef", outcome.input.subjectRef);
  text("value", std::string(caseName(outcome.input.outcome)));
  textOrNull("note", outcome.input.note);
  textOrNull("correctsOutcomeID", outcome.input.correctsOutcomeID);
  out.endObject();
  out.endObject();
  return out.take() + '\n';
}

std::string settledLine(const std::string& id) {
  JsonWriter out;
  out.beginObject(Layout::inLine);
  out.key("settled");
  out.string(id);
  out.endObject();
  return out.take() + '\n';
}

void readHead(JsonReader& in) {
  in.object(
      {{"format", Presence::required, [&] { in.name(std::array<std::string_view, 1>{format}); }},
       {"version", Presence::required, [&] {
          if (in.integer() != version) in.fail("1", "another version");
        }}});
  in.finish();
}

WaitingOutcome readOutcome(JsonReader& in) {
  using enum Presence;
  std::string id, goalID, goalTitle, subjectName;
  std::size_t kind = 0, value = 0;
  std::optional<std::string> subjectRef, note, corrects;
  in.object({
      {"id", required, [&] { id = in.string(); }},
      {"goalID", required, [&] { goalID = in.string(); }},
      {"goalTitle", required, [&] { goalTitle = in.string(); }},
      {"subjectName", required, [&] { subjectName = in.string(); }},
      {"subjectKind", required, [&] { kind = in.name(subjectKindNames); }},
      {"subjectRef", required, [&] { subjectRef = in.stringOrNull(); }},
      {"value", required, [&] { value = in.name(outcomeValueNames); }},
      {"note", required, [&] { note = in.stringOrNull(); }},
      {"correctsOutcomeID", required, [&] { corrects = in.stringOrNull(); }},
  });
  return {std::move(id), std::move(goalID), std::move(goalTitle), std::move(subjectName),
          GoalOutcomeRecordingInput{static_cast<GoalOutcomeSubjectKind>(kind),
                                    std::move(subjectRef), static_cast<GoalOutcomeValue>(value),
                                    std::move(note), std::move(corrects)}};
}

/// Reads a line after the first one into the outcomes that wait.
void readEntry(JsonReader& in, std::vector<WaitingOutcome>& waiting) {
  std::optional<WaitingOutcome> added;
  std::optional<std::string> settled;
  in.object({{"waiting", Presence::optional, [&] { added.emplace(readOutcome(in)); }},
             {"settled", Presence::optional, [&] { settled = in.string(); }}});
  if (added.has_value() == settled.has_value()) in.fail("one of waiting, settled", "another entry");
  in.finish();
  std::vector<WaitingOutcome> rest;
  for (WaitingOutcome& each : waiting) {
    // A second line with the same id replaces nothing: the first one may be recorded already.
    if (added && each.id == added->id) added.reset();
    if (each.id != settled) rest.push_back(std::move(each));
  }
  if (added) rest.push_back(*std::move(added));
  waiting.swap(rest);
}

Content readContent(const std::string& text, const std::string& file) {
  Content content;
  std::size_t number = 0;
  while (content.length < text.size()) {
    const std::size_t end = text.find('\n', content.length);
    const bool isWhole = end != std::string::npos;
    const std::string_view line = std::string_view(text).substr(
        content.length, isWhole ? end - content.length : std::string::npos);
    JsonReader in(line, file + ": line " + std::to_string(++number));
    try {
      if (number == 1) {
        readHead(in);
      } else {
        readEntry(in, content.waiting);
      }
    } catch (const documents::DocumentError&) {
      // The beginning of any other file is not a line of ours that was not written to its end.
      const bool isBegun = number > 1 || headLine().starts_with(line);
      if (isWhole || !isBegun) throw;
      return content;
    }
    if (!isWhole) {
      content.last = line;
      return content;
    }
    content.length = end + 1;
  }
  return content;
}

/// Appends a line to the journal; to an empty file, the first line too.
void append(const JournalFile& file, const Content& content, const std::string& line) {
  std::string before;
  if (!content.last.empty()) {
    before = content.last + '\n';
  } else if (content.length == 0) {
    before = headLine();
  }
  file.replaceFrom(content.length, before + line);
}

}  // namespace

OutcomeJournal::OutcomeJournal(const std::string& store) {
  std::error_code error;
  std::filesystem::path path = std::filesystem::canonical(store, error);
  if (error) path = std::filesystem::absolute(store, error);
  file_ = path.string() + "-waiting";
}

std::vector<WaitingOutcome> OutcomeJournal::read() const {
  const std::optional<JournalFile> file = JournalFile::open(file_, JournalFile::Missing::stays);
  if (!file) return {};
  return readContent(file->read(), file_).waiting;
}

void OutcomeJournal::add(const WaitingOutcome& outcome) const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::isCreated);
  append(*file, readContent(file->read(), file_), waitingLine(outcome));
}

void OutcomeJournal::settle(const std::string& id) const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::stays);
  if (!file) return;
  const Content content = readContent(file->read(), file_);
  const auto isOther = [&](const WaitingOutcome& each) { return each.id != id; };
  const auto others = std::count_if(content.waiting.begin(), content.waiting.end(), isOther);
  if (others == 0) {
    file->remove();
  } else if (static_cast<std::size_t>(others) < content.waiting.size()) {
    append(*file, content, settledLine(id));
  }
}

}  // namespace vemra::desk
