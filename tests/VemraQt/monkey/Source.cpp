#include "tests/VemraQt/monkey/Source.hpp"

#include "tests/RecordBuilders.hpp"
#include "tests/RecordedOutcomes.hpp"

#include <algorithm>

namespace vemra::monkey {

namespace {

using People = std::vector<GoalPersonCandidateDTO>;
constexpr std::size_t mostPeople = 400;

std::optional<std::string> nameOf(std::uint32_t figure) {
  switch (figure % 9) {
    case 0:
      return std::nullopt;
    case 1:
      return "";
    case 2:
      return "Maximiliane Freifrau von und zu Hohenstein-Wallersdorf-Oberammergau the younger";
    case 3:
      return "Donaudampfschifffahrtselektrizitaetenhauptbetriebswerkbauunterbeamtengesellschaft";
    case 4:
      return "\u05d3\u05e0\u05d4 \u05db\u05d4\u05df";
    case 5:
      return "<b>Ada</b> & \"Bo\" &amp; %1";
    default:
      return "Person " + std::to_string(figure % 1000);
  }
}

GoalWhyDTO whyOf(std::uint32_t figure) {
  switch (figure % 6) {
    case 0:
      return GoalWhyDTO::evidence("Email", "Asked about design leads in March", "r");
    case 1:
      return GoalWhyDTO::connection(1 + figure % 4);
    case 2:
      return GoalWhyDTO::sharedActivity(figure % 3, figure % 7);
    case 3:
      return GoalWhyDTO::nameMatch();
    case 4:
      return GoalWhyDTO::evidence(
          "Minutes",
          "A very long line of the minutes of a meeting that went on and on about who "
          "should be asked, and by whom, and when, and what for",
          "r");
    default:
      return GoalWhyDTO::generic();
  }
}

/// Two spellings of one reference are one reference.
std::string refOf(std::uint32_t figure) {
  switch (figure % 12) {
    case 0:
      return "caf\u00e9 " + std::to_string(figure % 5);
    case 1:
      return "cafe\u0301 " + std::to_string(figure % 5);
    case 2:
      return "";
    case 3:
      return "a.b c." + std::to_string(figure % 7);
    default:
      return "n" + std::to_string(figure);
  }
}

GoalPersonCandidateDTO personOf(std::string ref, std::uint32_t figure) {
  std::vector<std::string> evidence;
  if (figure % 2 == 0) evidence.push_back("ev" + std::to_string(figure));
  return build::person(std::move(ref), nameOf(figure), std::move(evidence), whyOf(figure));
}

GoalPathCandidateDTO pathOf(std::uint32_t figure) {
  GoalPathCandidateDTO path;
  if (figure % 5 != 0) path.personRefs = {"p1", "p" + std::to_string(figure % 3)};
  path.why = whyOf(figure);
  return path;
}

void addOutcome(Result& result, GoalOutcomeSubjectKind kind, std::optional<std::string> subject,
                std::uint32_t figure) {
  std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
  // A long day's worth is enough.
  if (outcomes.size() > 60) outcomes.erase(outcomes.begin(), outcomes.begin() + 30);
  GoalOutcomeDTO outcome;
  outcome.id = "x" + std::to_string(figure) + "." + std::to_string(outcomes.size());
  outcome.subjectKind = kind;
  outcome.subjectRef = std::move(subject);
  outcome.value = allGoalOutcomeValues[figure % std::size(allGoalOutcomeValues)];
  if (figure % 3 == 0) outcome.note = "said so at the fair";
  if (figure % 3 == 1) outcome.note = "one line\nand another, with a rather long end of the line";
  if (figure % 4 == 0) outcome.correctsOutcomeID = "";
  outcomes.push_back(std::move(outcome));
  result.outcomes = std::move(outcomes);
}

void changePeople(People& people, const Step& step, std::optional<std::size_t> focused) {
  const auto at = [&](std::uint32_t figure) {
    return people.begin() + static_cast<std::ptrdiff_t>(figure % people.size());
  };
  // Half of the changes to a person concern the person with the keyboard focus.
  auto one = people.empty() ? people.end() : at(step.b);
  if (focused && *focused < people.size() && step.c % 2 == 0) {
    one = people.begin() + static_cast<std::ptrdiff_t>(*focused);
  }
  const bool someone = !people.empty();
  const bool mayGrow = people.size() < mostPeople || people.size() > 10 * mostPeople;
  switch (step.a % 14) {
    case 0:
      if (someone) people.erase(one);
      break;
    case 1:
      if (someone) {
        people.erase(one, one + std::min<std::ptrdiff_t>(1 + step.c % 5, people.end() - one));
      }
      break;
    case 2:
    case 3:
      if (mayGrow) people.insert(one, personOf(refOf(step.c), step.b));
      break;
    case 4:  // above, so that the elements in view move down
      people.insert(people.begin(), personOf(refOf(step.c), step.b));
      if (!mayGrow) people.pop_back();
      break;
    case 5:
      if (someone) std::rotate(people.begin(), at(step.c), people.end());
      break;
    case 6:
      if (someone) std::iter_swap(one, at(step.c));
      break;
    case 7:
      std::ranges::reverse(people);
      break;
    case 8:  // a reference for the second time
      if (someone && mayGrow) {
        GoalPersonCandidateDTO twin = *one;
        twin.displayName = nameOf(step.c);
        people.insert(at(step.c), std::move(twin));
      }
      break;
    case 9:
      if (someone) {
        one->evidenceIDs = one->evidenceIDs.empty() ? SharedArray<std::string>{"ev new"}
                                                    : SharedArray<std::string>{};
      }
      break;
    case 10:
      if (someone) one->displayName = nameOf(step.c);
      break;
    case 11:
      if (someone) one->why = whyOf(step.c);
      break;
    case 12:
      if (someone) {
        GoalPersonCandidateDTO moved = *one;
        people.erase(one);
        people.insert(step.c % 3 == 0 ? people.begin() : people.end(), std::move(moved));
      }
      break;
    default:
      if (step.b % 4 == 0) {
        people.clear();
      } else if (people.size() < 3) {
        for (std::uint32_t i = 0; i < step.c % 40; ++i) {
          people.push_back(personOf("p" + std::to_string(i), step.b + i));
        }
      }
  }
}

void changeElsewhere(Result& result, const Step& step) {
  std::vector<GoalPathCandidateDTO> paths(result.paths.begin(), result.paths.end());
  switch (step.b % 7) {
    case 0:
      paths.clear();
      result.paths = std::move(paths);
      break;
    case 1:
      paths.insert(paths.begin(), pathOf(step.c));
      if (paths.size() > 3) paths.pop_back();
      result.paths = std::move(paths);
      break;
    case 2:
      if (!paths.empty()) paths.front() = pathOf(step.c);
      result.paths = std::move(paths);
      break;
    case 3:
      result.goal.title = step.c % 3 ? *nameOf(2 + step.c % 3) : "";
      break;
    case 4:
      result.coverage.evidenceCount = static_cast<std::int64_t>(step.c % 4) - 1;
      break;
    case 5:
      result.goal.targetPersonRef =
          step.c % 2 ? std::nullopt : std::optional<std::string>("p" + std::to_string(step.c));
      break;
    default:
      break;  // the very same once more
  }
}

}  // namespace

GoalResultView Host::view() {
  return GoalResultView(
      GoalResultSnapshotV1(result),
      [this](const std::string& ref) { log.push_back("open " + ref); },
      [this](const std::string& id) { log.push_back("evidence " + id); },
      [this](const GoalPathCandidateDTO& path) {
        log.push_back("focus " + (path.personRefs.empty() ? "nil" : path.personRefs.back()));
      },
      [this](const GoalOutcomeRecordingInput& input) { record(input); });
}

void Host::record(const GoalOutcomeRecordingInput& input) {
  log.push_back("record " + std::string(caseName(input.subjectKind())) + " " +
                input.subjectRef().value_or("nil") + " " + std::string(caseName(input.outcome())) +
                " \"" + input.note().value_or("nil") + "\" " +
                input.correctsOutcomeID().value_or("nil"));
  append(result, input);
  if (answer == Answer::later) return;
  if (answer == Answer::drops && input.subjectKind() == GoalOutcomeSubjectKind::person) {
    People people(result.people.begin(), result.people.end());
    const auto subject = std::ranges::find(people, input.subjectRef().value_or(""),
                                           &GoalPersonCandidateDTO::personRef);
    if (subject != people.end()) people.erase(subject);
    result.people = std::move(people);
  }
  show();
}

Result resultOf(std::size_t people) {
  Result result;
  result.goal.id = "g1";
  result.goal.title = "Find a design lead";
  result.goal.targetPersonRef = "p9";
  People list;
  list.reserve(people);
  for (std::size_t i = 0; i < people; ++i) {
    list.push_back(personOf("p" + std::to_string(i), static_cast<std::uint32_t>(i)));
  }
  result.people = std::move(list);
  result.paths = {pathOf(1)};
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.evidenceCount = 12;
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";
  return result;
}

void change(Result& result, const Step& step, std::optional<std::size_t> focused) {
  const std::uint32_t what = step.a / 14 % 8;
  if (what < 5) {
    People people(result.people.begin(), result.people.end());
    changePeople(people, step, focused);
    result.people = std::move(people);
  } else if (what < 7) {
    const bool ofPath = result.people.empty() || step.b % 5 == 0;
    if (ofPath) {
      std::optional<std::string> subject;
      if (!result.paths.empty() && !result.paths.front().personRefs.empty()) {
        subject = result.paths.front().personRefs.back();
      }
      addOutcome(result, GoalOutcomeSubjectKind::path, subject, step.a);
    } else {
      const std::size_t row = focused && *focused < result.people.size() && step.b % 2
                                  ? *focused
                                  : step.b % result.people.size();
      addOutcome(result, GoalOutcomeSubjectKind::person, result.people[row].personRef, step.a);
    }
  } else {
    changeElsewhere(result, step);
  }
}

}  // namespace vemra::monkey
