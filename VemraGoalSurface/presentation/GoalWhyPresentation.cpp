#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <variant>

namespace vemra::GoalWhyPresentation {
namespace {

// "1 shared thread", "2 shared threads", "-1 shared threads".
std::string counted(std::int64_t count, std::string_view noun) {
  std::string phrase = std::to_string(count);
  phrase += " shared ";
  phrase += noun;
  if (count != 1) phrase += 's';
  return phrase;
}

std::string line(const GoalWhyDTO::Evidence& evidence) {
  return evidence.label + ": " + evidence.detail;
}

std::string line(const GoalWhyDTO::Connection& connection) {
  if (connection.hopCount == 1) return "Direct relationship evidence";
  std::int64_t between = 0;
  if (__builtin_sub_overflow(connection.hopCount, std::int64_t{1}, &between)) {
    std::fputs("GoalWhyPresentation.text: integer overflow in the hop count of a connection\n",
               stderr);
    std::abort();
  }
  return "Connected through " + counted(between, "relationship");
}

std::string line(const GoalWhyDTO::SharedActivity& activity) {
  std::string parts;
  if (activity.threadCount >= 1) parts = counted(activity.threadCount, "thread");
  if (activity.meetingCount >= 1) {
    if (!parts.empty()) parts += ", ";
    parts += counted(activity.meetingCount, "meeting");
  }
  return parts.empty() ? "Relationship evidence" : parts;
}

// Only one plain reason has its own sentence: the engine may add others, which all get the same
// one.
std::string line(GoalWhyDTO::Plain reason) {
  return reason == GoalWhyDTO::Plain::nameMatch ? "Matches on name" : "Candidate person";
}

}  // namespace

std::string text(const GoalWhyDTO& why) {
  return std::visit([](const auto& reason) { return line(reason); }, why.reason);
}

}  // namespace vemra::GoalWhyPresentation
