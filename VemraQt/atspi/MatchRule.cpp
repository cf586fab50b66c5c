#include "VemraQt/atspi/MatchRule.hpp"

#include <QDBusArgument>
#include <QStringList>

namespace vemra::qt::atspi {

/// Reads the rule through a const argument: the other overloads would write to it.
std::optional<MatchRule> matchRuleIn(const QVariant& argument) {
  const QDBusArgument sent = argument.value<QDBusArgument>();
  if (sent.currentType() != QDBusArgument::StructureType) return std::nullopt;
  MatchRule rule;
  QList<int> states, roles;
  int statesAgree = 0, attributesAgree = 0, rolesAgree = 0, interfacesAgree = 0;
  QStringList interfaces;
  sent.beginStructure();
  sent >> states >> statesAgree >> rule.attributes >> attributesAgree >> roles >> rolesAgree >>
      interfaces >> interfacesAgree >> rule.isInverted;
  sent.endStructure();
  for (qsizetype word = 0; word < states.size() && word < 2; ++word) {
    rule.states |= quint64{static_cast<quint32>(states[word])} << (32 * word);
  }
  constexpr int bitsOfWord = 32;
  for (qsizetype word = 0; word < roles.size(); ++word) {
    for (int bit = 0; bit < bitsOfWord; ++bit) {
      const bool isSet = ((static_cast<quint32>(roles[word]) >> bit) & 1U) != 0;
      if (isSet) rule.roles.push_back(static_cast<int>(word) * bitsOfWord + bit);
    }
  }
  rule.statesAgree = static_cast<Agreement>(statesAgree);
  rule.attributesAgree = static_cast<Agreement>(attributesAgree);
  rule.rolesAgree = static_cast<Agreement>(rolesAgree);
  rule.hasInterfaces = !interfaces.isEmpty();
  return rule;
}

}  // namespace vemra::qt::atspi
