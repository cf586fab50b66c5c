#include "VemraQt/atspi/RoleSearch.hpp"

#include "VemraQt/atspi/IdentifierSource.hpp"
#include "VemraQt/atspi/MatchRule.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include <QAccessibleInterface>

namespace vemra::qt::atspi {

namespace {

/// The number of AtspiRole for the roles that a page has, and for some of a host's widgets; -1 for
/// another role.
int numberOf(QAccessible::Role role) {
  static const std::map<QAccessible::Role, int> numbers{
      {QAccessible::CheckBox, 7}, {QAccessible::ComboBox, 11},    {QAccessible::StaticText, 29},
      {QAccessible::List, 31},    {QAccessible::ListItem, 32},    {QAccessible::Grouping, 39},
      {QAccessible::Button, 43},  {QAccessible::RadioButton, 44}, {QAccessible::EditableText, 61},
      {QAccessible::Heading, 83}, {QAccessible::Link, 88}};
  const auto number = numbers.find(role);
  return number == numbers.end() ? -1 : number->second;
}

bool isRoleOfPages(int number) {
  static const QList<int> known{7, 11, 29, 31, 32, 39, 43, 44, 61, 83, 88};
  return known.contains(number);
}

bool agrees(const QAccessible::State& state, const MatchRule& rule) {
  if (rule.states == 0) return true;
  const quint64 common = stateBits(state) & rule.states;
  switch (rule.statesAgree) {
    case Agreement::all:
      return common == rule.states;
    case Agreement::any:
      return common != 0;
    case Agreement::none:
      return common == 0;
    default:
      return false;
  }
}

/// Passes the objects below `top` with a sought role to `take`; returns whether to go on.
bool collect(QAccessibleInterface& top, const RoleTest& isSought, const FoundObject& take) {
  bool goesOn = true;
  const FoundObject takeOne = [&](QAccessible::Id found) { return goesOn = take(found); };
  const bool isPage = std::ranges::any_of(identifierSources(), [&](IdentifierSource* source) {
    return source->findByRole(top, isSought, takeOne);
  });
  if (isPage) return goesOn;
  for (int i = 0; i < top.childCount(); ++i) {
    QAccessibleInterface* child = top.child(i);
    if (!child || !child->isValid()) continue;
    if (isSought(child->role()) && !take(QAccessible::uniqueId(child))) return false;
    if (!collect(*child, isSought, take)) return false;
  }
  return true;
}

}  // namespace

quint64 stateBits(const QAccessible::State& state) {
  const std::pair<bool, int> bits[] = {
      {state.active, 1},      {state.collapsed, 5},
      {state.editable, 7},    {!state.disabled, 8},
      {state.expandable, 9},  {state.expanded, 10},
      {state.focusable, 11},  {state.focused, 12},
      {state.selectable, 22}, {state.selected, 23},
      {!state.disabled, 24},  {!state.invisible && !state.offscreen, 25},
      {state.editable, 26},   {state.selectable, 28},
      {!state.invisible, 30}, {state.selectableText, 38},
      {state.hasPopup, 42},
  };
  quint64 set = 0;
  for (const auto& [isSet, bit] : bits) {
    if (isSet) set |= quint64{1} << bit;
  }
  return set;
}

std::optional<QList<QAccessible::Id>> findByRole(QAccessibleInterface& top, const MatchRule& rule,
                                                 int most) {
  const bool asksForAny = rule.rolesAgree == Agreement::any ||
                          (rule.rolesAgree == Agreement::all && rule.roles.size() == 1);
  if (rule.roles.isEmpty() || !asksForAny || !rule.attributes.isEmpty() || rule.hasInterfaces ||
      rule.isInverted || !std::ranges::all_of(rule.roles, isRoleOfPages)) {
    return std::nullopt;
  }
  QList<QAccessible::Id> matches;
  collect(
      top, [&](QAccessible::Role role) { return rule.roles.contains(numberOf(role)); },
      [&](QAccessible::Id id) {
        const QAccessibleInterface* object = QAccessible::accessibleInterface(id);
        if (object && agrees(object->state(), rule)) matches.push_back(id);
        return most <= 0 || matches.size() < most;
      });
  return matches;
}

}  // namespace vemra::qt::atspi
