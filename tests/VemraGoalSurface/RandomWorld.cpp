#include "tests/VemraGoalSurface/RandomWorld.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace vemra::screentest {

namespace {

GoalOutcomeValue valueNamed(std::string_view name) {
  return *std::ranges::find(allGoalOutcomeValues, name,
                            [](GoalOutcomeValue value) { return caseName(value); });
}

}  // namespace

model::Person RandomWorld::randomPerson() {
  model::Person person{static_cast<int>(dice_.below(references.size())), std::nullopt,
                       std::nullopt};
  if (!dice_.oneIn(4)) person.name = std::string(1, static_cast<char>('A' + dice_.below(5)));
  if (dice_.oneIn(2)) person.evidenceID = "ev" + std::to_string(dice_.below(3));
  return person;
}

model::Record RandomWorld::randomRecord() {
  model::Record record{"",           dice_.oneIn(3), std::nullopt, static_cast<int>(dice_.below(8)),
                       std::nullopt, std::nullopt};
  if (!dice_.oneIn(6)) record.reference = static_cast<int>(dice_.below(references.size()));
  if (!record.isPath && !record.reference) record.reference = 0;
  if (dice_.oneIn(2)) record.note = dice_.oneIn(3) ? "" : "stored";
  if (dice_.oneIn(3)) record.correctsID = dice_.oneIn(3) ? "" : "r0";
  return record;
}

void RandomWorld::change() {
  switch (dice_.below(8)) {
    case 0:
      std::ranges::shuffle(world_.people, dice_.engine());
      break;
    case 1:
    case 2:
      world_.people.insert(world_.people.begin() +
                               static_cast<std::ptrdiff_t>(dice_.below(world_.people.size() + 1)),
                           randomPerson());
      break;
    case 3:
      if (!world_.people.empty()) {
        world_.people.erase(world_.people.begin() +
                            static_cast<std::ptrdiff_t>(dice_.below(world_.people.size())));
      }
      break;
    case 4:
      for (model::Person& person : world_.people) {
        const int reference = person.reference;
        person = randomPerson();
        person.reference = reference;
      }
      break;
    case 5:
      world_.paths.clear();
      while (dice_.oneIn(2)) {
        world_.paths.push_back(dice_.oneIn(4) ? std::optional<int>()
                                              : static_cast<int>(dice_.below(references.size())));
      }
      break;
    case 6:
      record(randomRecord());
      break;
    case 7:
      if (dice_.oneIn(4)) {
        world_.people.clear();
      } else if (!world_.records.empty()) {
        world_.records.pop_back();
      }
      break;
  }
}

void RandomWorld::record(model::Record record) {
  record.id = "r" + std::to_string(++lastID_);
  world_.records.push_back(std::move(record));
}

Result RandomWorld::result() const {
  Result result;
  result.goal.title = "Goal";
  std::vector<GoalPersonCandidateDTO> people;
  for (const model::Person& one : world_.people) {
    people.push_back(person(bytes(one.reference), one.name));
    people.back().why = GoalWhyDTO::generic();
    if (one.evidenceID) people.back().evidenceIDs = {*one.evidenceID};
  }
  std::vector<GoalPathCandidateDTO> paths;
  for (const auto& last : world_.paths) {
    paths.push_back(
        path(last ? std::vector<std::string>{"x", bytes(*last)} : std::vector<std::string>{},
             GoalWhyDTO::generic()));
  }
  std::vector<GoalOutcomeDTO> outcomes;
  for (const model::Record& record : world_.records) {
    outcomes.push_back(
        outcome(record.id, record.isPath ? SubjectKind::path : SubjectKind::person,
                record.reference ? OptionalText(bytes(*record.reference)) : std::nullopt,
                valueNamed(model::valueNames[record.value].code), record.note, record.correctsID));
  }
  result.people = people;
  result.paths = paths;
  result.outcomes = outcomes;
  return result;
}

}  // namespace vemra::screentest
