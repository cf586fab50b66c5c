#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <random>
#include <string>

namespace vemra::documents {

/// Makes records with every field set at random, from a fixed seed; strings are well-formed.
class RandomResult {
 public:
  explicit RandomResult(unsigned seed) : random_(seed) {}

  GetGoalSnapshotResponse result() {
    GetGoalSnapshotResponse result;
    result.goal = goal();
    result.people = array<GoalPersonCandidateDTO>([&] {
      return GoalPersonCandidateDTO{string(), optionalString(), why(), strings()};
    });
    result.paths = array<GoalPathCandidateDTO>([&] {
      return GoalPathCandidateDTO{strings(), why(), integer()};
    });
    result.group = array<GoalGroupCandidateDTO>([&] {
      return GoalGroupCandidateDTO{string(), strings()};
    });
    result.coverage = {strings(), integer(), optionalString()};
    result.outcomes = array<GoalOutcomeDTO>([&] { return outcome(); });
    return result;
  }

  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

 private:
  GoalDTO goal() {
    return {string(),
            string(),
            GoalStatus(below(4)),
            optionalString(),
            string(),
            string(),
            GoalPriority(below(3)),
            strings(),
            integer(),
            strings(),
            integer(),
            strings()};
  }

  GoalOutcomeDTO outcome() {
    return {string(),
            string(),
            GoalOutcomeSubjectKind(below(2)),
            optionalString(),
            GoalOutcomeValue(below(8)),
            optionalString(),
            optionalString(),
            optionalString(),
            optionalString()};
  }

  GoalWhyDTO why() {
    switch (below(5)) {
      case 0:
        return GoalWhyDTO::evidence(string(), string(), string());
      case 1:
        return GoalWhyDTO::connection(integer());
      case 2:
        return GoalWhyDTO::sharedActivity(integer(), integer());
      case 3:
        return GoalWhyDTO::nameMatch();
      default:
        return GoalWhyDTO::generic();
    }
  }

  std::string string() {
    static const char* const pieces[] = {
        "a",       "p1", "\"",     "\\",   "/",      "\n",     "\t",   "\x01", "\x7F", "é",
        "e\u0301", "😀",  "\u2028", "שלום", "\uFEFF", "\uFFFF", "<b>&", " ",    "~"};
    std::string text;
    for (std::size_t count = below(5); count > 0; --count) text += pieces[below(std::size(pieces))];
    if (below(8) == 0) text += '\0';
    return text;
  }

  std::optional<std::string> optionalString() {
    if (below(3) == 0) return std::nullopt;
    return string();
  }

  std::int64_t integer() {
    switch (below(4)) {
      case 0:
        return 0;
      case 1:
        return std::int64_t(below(2)) == 0 ? INT64_MIN : INT64_MAX;
      case 2:
        return std::int64_t(below(100)) - 50;
      default:
        return static_cast<std::int64_t>(random_());
    }
  }

  template <class Element, class Make>
  SharedArray<Element> array(Make make) {
    std::vector<Element> elements;
    for (std::size_t count = below(4); count > 0; --count) elements.push_back(make());
    return elements;
  }

  SharedArray<std::string> strings() {
    return array<std::string>([&] { return string(); });
  }

  std::mt19937_64 random_;
};

}  // namespace vemra::documents
