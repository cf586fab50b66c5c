#pragma once

#include <optional>

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

/// \file
/// The rule of a search on the accessibility bus (`Collection.GetMatches`), as a client sends it.

namespace vemra::qt::atspi {

/// How an object must agree with one part of a rule (AtspiCollectionMatchType).
enum class Agreement { invalid, all, any, none, empty };

/// A part without content agrees with every object.
struct MatchRule {
  quint64 states = 0;  ///< one bit for each AtspiStateType
  Agreement statesAgree = Agreement::all;
  QMap<QString, QString> attributes;
  Agreement attributesAgree = Agreement::all;
  QList<int> roles;  ///< numbers of AtspiRole, ascending
  Agreement rolesAgree = Agreement::any;
  bool hasInterfaces = false;
  bool isInverted = false;
};

/// The rule in an argument of a call; nil when the argument is not a rule.
std::optional<MatchRule> matchRuleIn(const QVariant& argument);

}  // namespace vemra::qt::atspi
