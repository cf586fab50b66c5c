#include "VemraQt/atspi/RoleSearch.hpp"

#include "VemraQt/atspi/IdentifierSource.hpp"
#include "VemraQt/atspi/Landmarks.hpp"
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

/// The number of AtspiRole for an element of a page: its sections are landmarks.
int numberOnPage(QAccessible::Role role) {
  return role == QAccessible::Grouping ? landmarkNumber : numberOf(role);
}

bool isRoleOfPages(int number) {
  static const QList<int> known{7, 11, 29, 31, 32, 39, 43, 44, 61, 83, 88, landmarkNumber};
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

/// Whether the element has all of the rule's attributes, for instance the level of a heading.
bool hasAttributes(QAccessible::Id element, const MatchRule& rule) {
  if (rule.attributes.isEmpty()) return true;
  QMap<QString, QString> own;
  for (const IdentifierSource* source : identifierSources()) {
    own.insert(source->attributes(element));
  }
  const QStringList sought = rule.attributes.keys();
  return std::ranges::all_of(sought, [&](const QString& name) {
    return own.contains(name) && own.value(name) == rule.attributes.value(name);
  });
}

/// Passes the objects below `top` with one of the roles to `take`; returns whether to go on.
bool collect(QAccessibleInterface& top, const QList<int>& roles, const FoundObject& take) {
  const RoleTest isSoughtOnPage = [&](QAccessible::Role role) {
    return roles.contains(numberOnPage(role));
  };
  bool goesOn = true;
  const FoundObject takeOne = [&](QAccessible::Id found) { return goesOn = take(found); };
  const bool isPage = std::ranges::any_of(identifierSources(), [&](IdentifierSource* source) {
    return source->findByRole(top, isSoughtOnPage, takeOne);
  });
  if (isPage) return goesOn;
  for (int i = 0; i < top.childCount(); ++i) {
    QAccessibleInterface* child = top.child(i);
    if (!child || !child->isValid()) continue;
    const bool isFound = roles.contains(numberOf(child->role()));
    if (isFound && !take(QAccessible::uniqueId(child))) return false;
    if (!collect(*child, roles, take)) return false;
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
  const bool asksForOtherAttributes =
      !rule.attributes.isEmpty() &&
      (rule.attributesAgree != Agreement::all || rule.attributes.contains(QStringLiteral("id")));
  if (rule.roles.isEmpty() || !asksForAny || asksForOtherAttributes || rule.hasInterfaces ||
      rule.isInverted || !std::ranges::all_of(rule.roles, isRoleOfPages)) {
    return std::nullopt;
  }
  QList<QAccessible::Id> matches;
  collect(top, rule.roles, [&](QAccessible::Id id) {
    const QAccessibleInterface* object = QAccessible::accessibleInterface(id);
    if (object && agrees(object->state(), rule) && hasAttributes(id, rule)) matches.push_back(id);
    return most <= 0 || matches.size() < most;
  });
  return matches;
}

}  // namespace vemra::qt::atspi
