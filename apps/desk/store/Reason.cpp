#include "apps/desk/store/Reason.hpp"

#include "apps/desk/store/CaseNames.hpp"

#include <variant>

namespace vemra::desk {
namespace {

using documents::WhyKind;

struct Filler {
  ReasonColumns& columns;

  WhyKind operator()(const GoalWhyDTO::Evidence& evidence) {
    columns.label = evidence.label;
    columns.detail = evidence.detail;
    columns.reference = evidence.reference;
    return WhyKind::evidence;
  }
  WhyKind operator()(const GoalWhyDTO::Connection& connection) {
    columns.hopCount = connection.hopCount;
    return WhyKind::connection;
  }
  WhyKind operator()(const GoalWhyDTO::SharedActivity& activity) {
    columns.threadCount = activity.threadCount;
    columns.meetingCount = activity.meetingCount;
    return WhyKind::sharedActivity;
  }
  WhyKind operator()(GoalWhyDTO::Plain plain) {
    return plain == GoalWhyDTO::Plain::nameMatch ? WhyKind::nameMatch : WhyKind::generic;
  }
};

}  // namespace

ReasonColumns::ReasonColumns(const GoalWhyDTO& why) {
  kind = documents::nameIn(documents::whyKindNames, std::visit(Filler{*this}, why.reason));
}

GoalWhyDTO readReason(Statement& row, int first) {
  const auto kind = readCase<WhyKind>(row, first, documents::whyKindNames);
  const auto expectNulls = [&](int from, int to) {
    for (int column = from; column <= to; ++column) row.expectNull(first + column);
  };
  if (kind != WhyKind::evidence) expectNulls(1, 3);
  if (kind != WhyKind::connection) expectNulls(4, 4);
  if (kind != WhyKind::sharedActivity) expectNulls(5, 6);
  switch (kind) {
    case WhyKind::evidence:
      return GoalWhyDTO::evidence(row.text(first + 1), row.text(first + 2), row.text(first + 3));
    case WhyKind::connection:
      return GoalWhyDTO::connection(row.integer(first + 4));
    case WhyKind::sharedActivity:
      return GoalWhyDTO::sharedActivity(row.integer(first + 5), row.integer(first + 6));
    case WhyKind::nameMatch:
      return GoalWhyDTO::nameMatch();
    case WhyKind::generic:
      break;
  }
  return GoalWhyDTO::generic();
}

}  // namespace vemra::desk
