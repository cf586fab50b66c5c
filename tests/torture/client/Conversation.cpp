#include "tests/torture/client/Conversation.hpp"

#include "VemraPlatform/task/Start.hpp"
#include "VemraPlatform/text/OneLine.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"

#include <algorithm>
#include <new>
#include <sstream>
#include <stdexcept>

namespace vemra::desk {
namespace {

std::vector<std::string> wordsOf(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream rest(line);
  for (std::string word; std::getline(rest, word, '\t');) words.push_back(word);
  return words;
}

/// JSON on one line: a line feed inside a string is written as an escape there.
std::string withoutLineBreaks(std::string json) {
  std::replace(json.begin(), json.end(), '\n', ' ');
  return json;
}

std::string content(const std::string& file) {
  std::optional<GoalStore> store = GoalStore::openExisting(file);
  std::string all;
  if (store) {
    for (const GoalListing& goal : store->goals()) {
      all += (all.empty() ? "" : ",") + documents::writeResult(store->result(goal.id));
    }
  }
  return withoutLineBreaks("[" + all + "]");
}

std::string listed(const std::vector<GoalListing>& goals) {
  std::string ids;
  for (const GoalListing& goal : goals) ids += (ids.empty() ? "" : " ") + text::onOneLine(goal.id);
  return ids;
}

}  // namespace

std::string Conversation::answer(const std::string& line) {
  try {
    return "ok\t" + obey(wordsOf(line));
  } catch (const StoreError& error) {
    return "error\t" + text::onOneLine(error.what());
  } catch (const documents::DocumentError& error) {
    return "error\t" + text::onOneLine(error.what());
  } catch (const std::bad_alloc&) {
    return "error\tthere is not enough memory";
  }
}

std::string Conversation::obey(const std::vector<std::string>& words) {
  const std::string& verb = words.at(0);
  if (verb == "open") {
    engine_.reset();
    const Patience patience = words.size() > 2 ? Patience(std::stoi(words[2])) : usualPatience;
    engine_.emplace(words.at(1), patience);
    return "";
  }
  if (verb == "record") {
    GoalOutcomeRecordingInput input{GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped,
                                    words.at(2), std::nullopt};
    const std::string id = words.size() > 3 ? words[3] : newOutcomeID();
    return task::wait(engine().record(words.at(1), std::move(input), std::nullopt, id)).id;
  }
  if (verb == "import") {
    std::vector<GetGoalSnapshotResponse> results;
    for (std::size_t i = 1; i < words.size(); ++i) {
      results.push_back(documents::readResultFile(words[i]));
    }
    task::wait(engine().import(std::move(results)));
    return "";
  }
  if (verb == "goals") return listed(task::wait(engine().goals()));
  if (verb == "export") {
    return withoutLineBreaks(documents::writeResult(task::wait(engine().wholeResult(words.at(1)))));
  }
  if (verb == "content") return content(words.at(1));
  throw std::invalid_argument("unknown line: " + verb);
}

StoreEngine& Conversation::engine() {
  if (!engine_) throw std::logic_error("no store is open");
  return *engine_;
}

}  // namespace vemra::desk
