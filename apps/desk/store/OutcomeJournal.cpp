#include "apps/desk/store/OutcomeJournal.hpp"

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/text/TextMap.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/JsonReader.hpp"
#include "apps/documents/JsonWriter.hpp"

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
  std::size_t length = 0;   ///< of its lines with a line feed, in bytes
  std::size_t entries = 0;  ///< its lines after the first one
  std::string last;         ///< a line after them that lacks its line feed only
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
  text("store", outcome.store);
  text("savedAt", outcome.savedAt);
  text("goalID", outcome.goalID);
  text("goalTitle", outcome.goalTitle);
  text("subjectName", outcome.subjectName);
  text("subjectKind", std::string(caseName(outcome.input.subjectKind())));
  textOrNull("subjectRef", outcome.input.subjectRef());
  text("value", std::string(caseName(outcome.input.outcome())));
  textOrNull("note", outcome.input.note());
  textOrNull("correctsOutcomeID", outcome.input.correctsOutcomeID());
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
  std::string id, store, savedAt, goalID, goalTitle, subjectName;
  std::size_t kind = 0, value = 0;
  std::optional<std::string> subjectRef, note, corrects;
  in.object({
      {"id", required, [&] { id = in.string(); }},
      {"store", required, [&] { store = in.string(); }},
      {"savedAt", required, [&] { savedAt = in.string(); }},
      {"goalID", required, [&] { goalID = in.string(); }},
      {"goalTitle", required, [&] { goalTitle = in.string(); }},
      {"subjectName", required, [&] { subjectName = in.string(); }},
      {"subjectKind", required, [&] { kind = in.name(subjectKindNames); }},
      {"subjectRef", required, [&] { subjectRef = in.stringOrNull(); }},
      {"value", required, [&] { value = in.name(outcomeValueNames); }},
      {"note", required, [&] { note = in.stringOrNull(); }},
      {"correctsOutcomeID", required, [&] { corrects = in.stringOrNull(); }},
  });
  return {std::move(id),
          std::move(store),
          std::move(savedAt),
          std::move(goalID),
          std::move(goalTitle),
          std::move(subjectName),
          GoalOutcomeRecordingInput{static_cast<GoalOutcomeSubjectKind>(kind),
                                    std::move(subjectRef), static_cast<GoalOutcomeValue>(value),
                                    std::move(note), std::move(corrects)}};
}

/// The outcomes of the lines that have been read so far.
class Waiting {
 public:
  /// Reads a line after the first one.
  void readEntry(JsonReader& in) {
    std::optional<WaitingOutcome> added;
    std::optional<std::string> settled;
    in.object({{"waiting", Presence::optional, [&] { added.emplace(readOutcome(in)); }},
               {"settled", Presence::optional, [&] { settled = in.string(); }}});
    if (added.has_value() == settled.has_value()) {
      in.fail("one of waiting, settled", "another entry");
    }
    in.finish();
    if (settled) {
      const auto found = places_.find(*settled);
      if (found == places_.end()) return;
      outcomes_[found->second].reset();
      places_.erase(found);
    } else if (places_.emplace(added->id, outcomes_.size()).second) {
      outcomes_.push_back(std::move(added));
    }  // A second line with the same id replaces nothing: the first one may be recorded already.
  }

  std::vector<WaitingOutcome> take() && {
    std::vector<WaitingOutcome> waiting;
    waiting.reserve(places_.size());
    for (std::optional<WaitingOutcome>& each : outcomes_) {
      if (each) waiting.push_back(*std::move(each));
    }
    return waiting;
  }

 private:
  std::vector<std::optional<WaitingOutcome>> outcomes_;  // nil: settled
  text::TextMap<std::string, std::size_t> places_;       // the ids of those that wait
};

/// Reads the lines. Ends at a line that was not written to its end.
void readLines(std::string_view text, const std::string& file, Content& content, Waiting& waiting) {
  std::size_t number = 0;
  while (content.length < text.size()) {
    const std::size_t end = text.find('\n', content.length);
    const bool isWhole = end != std::string_view::npos;
    const std::string_view line =
        text.substr(content.length, isWhole ? end - content.length : std::string_view::npos);
    JsonReader in(line, file + ": line " + std::to_string(++number));
    try {
      if (number == 1) {
        readHead(in);
      } else {
        waiting.readEntry(in);
        ++content.entries;
      }
    } catch (const documents::DocumentError&) {
      // The beginning of any other file is not a line of ours that was not written to its end.
      const bool isBegun = number > 1 || headLine().starts_with(line);
      if (isWhole || !isBegun) throw;
      return;
    }
    if (!isWhole) {
      content.last = line;
      return;
    }
    content.length = end + 1;
  }
}

/// The text without the null bytes at its end. A power cut leaves them where the system had made
/// the file longer and had not written the text yet.
std::string_view withoutNullTail(std::string_view text) {
  const std::size_t last = text.find_last_not_of('\0');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

Content readContent(std::string_view text, const std::string& file) {
  Content content;
  Waiting waiting;
  readLines(withoutNullTail(text), file, content, waiting);
  content.waiting = std::move(waiting).take();
  return content;
}

/// The bytes to write from `content.length` on to append a line.
std::string addition(const Content& content, const std::string& line) {
  if (!content.last.empty()) return content.last + '\n' + line;
  return content.length == 0 ? headLine() + line : line;
}

/// A journal in which nothing but these outcomes wait.
std::string textOf(const std::vector<WaitingOutcome>& waiting) {
  std::string text = headLine();
  for (const WaitingOutcome& each : waiting) text += waitingLine(each);
  return text;
}

/// Whether most of the journal is about outcomes that wait no longer. The constant keeps a short
/// journal from being rewritten often.
bool isMostlySettled(const Content& content, std::size_t waiting) {
  return content.entries > 3 * waiting + 64;
}

}  // namespace

OutcomeJournal::OutcomeJournal(const std::string& store, std::chrono::milliseconds patience,
                               std::size_t room)
    : patience_(patience), room_(room) {
  std::error_code error;
  std::filesystem::path path = std::filesystem::canonical(store, error);
  if (error) path = std::filesystem::absolute(store, error);
  file_ = path.string() + "-waiting";
}

std::vector<WaitingOutcome> OutcomeJournal::read() const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::stays, patience_);
  if (!file) return {};
  return readContent(file->read(), file_).waiting;
}

void OutcomeJournal::add(const WaitingOutcome& outcome, JournalFile::Sync sync) const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::isCreated, patience_);
  const std::string before = file->read();
  const Content content = readContent(before, file_);
  const std::string line = waitingLine(outcome);
  std::size_t needed = line.size() + settledLine(outcome.id).size();
  for (const WaitingOutcome& each : content.waiting) needed += settledLine(each.id).size();
  if (before.size() + headLine().size() + needed > room_) {
    const std::string rest = textOf(content.waiting);
    if (rest.size() + needed > room_) throw StoreError(file_, "has no room for more");
    file->replaceBy(rest + line);
    return;
  }
  try {
    file->replaceFrom(content.length, addition(content, line), sync);
  } catch (const StoreError&) {
    if (before.empty()) file->remove(JournalFile::Sync::later);
    throw;
  }
}

bool OutcomeJournal::sync() const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::stays, patience_);
  if (file) file->sync();
  return file.has_value();
}

void OutcomeJournal::settle(const std::string& id, JournalFile::Sync sync) const {
  const auto file = JournalFile::open(file_, JournalFile::Missing::stays, patience_);
  if (!file) return;
  Content content = readContent(file->read(), file_);
  std::vector<WaitingOutcome> others;
  const std::size_t before = content.waiting.size();
  for (WaitingOutcome& each : content.waiting) {
    if (each.id != id) others.push_back(std::move(each));
  }
  if (others.empty()) {
    file->remove(sync);
  } else if (others.size() == before) {
    return;
  } else if (isMostlySettled(content, others.size())) {
    file->replaceBy(textOf(others));
  } else {
    file->replaceFrom(content.length, addition(content, settledLine(id)), sync);
  }
}

}  // namespace vemra::desk
