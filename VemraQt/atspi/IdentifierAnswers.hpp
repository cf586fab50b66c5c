#pragma once

#include <QDBusVirtualObject>
#include <QPointer>

/// \file
/// Answers to messages on the accessibility bus that Qt does not answer, or answers badly.
///
/// `AccessibleId` is not needed from Qt 6.9 on for an element with an identifier. All others
/// (attributes, `Collection.GetMatches`, interfaces, states, scrolling) are needed with Qt 6.4.2,
/// 6.8.2 and 6.11.2: without one of them, tests on the accessibility bus fail.

namespace vemra::qt::atspi {

/// Stands in front of Qt's object on the accessibility bus and answers the messages that Qt's
/// object does not answer, or answers badly: the identifier of an element, the search for elements
/// by identifier, the states of an element outside the viewport. It forwards all other messages to
/// Qt's object.
class IdentifierAnswers final : public QDBusVirtualObject {
 public:
  explicit IdentifierAnswers(QDBusVirtualObject& original) : original_(&original) {}

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  /// Qt's own object; nullptr once Qt has deleted it.
  const QDBusVirtualObject* original() const { return original_; }

  /// Registers the types of the answers with Qt; call it once, before the first answer.
  static void registerTypes();

 private:
  QPointer<QDBusVirtualObject> original_;
};

}  // namespace vemra::qt::atspi
