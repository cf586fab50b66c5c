#pragma once

#include <vector>

#include <QDBusVirtualObject>
#include <QPointer>

/// \file
/// The answers that Qt's own object on the accessibility bus does not give, or not well enough.
///
/// `AccessibleId` is not needed from Qt 6.9 on for an element with an identifier. For the others
/// (attributes, `Collection.GetMatches`, states, scrolling) no version is known that makes them
/// unnecessary; they are measured with Qt 6.4.2.

namespace vemra::qt::atspi {

class IdentifierSource;

/// Stands in front of Qt's object on the accessibility bus and answers what that one does not, or
/// not well enough: the identifier of an element, finding elements by it, the states of an element
/// outside the viewport. All else is the original's.
class IdentifierAnswers final : public QDBusVirtualObject {
 public:
  explicit IdentifierAnswers(QDBusVirtualObject& original) : original_(&original) {}

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  /// nullptr once Qt has deleted it.
  const QDBusVirtualObject* original() const { return original_; }

  /// What the answers are made of, made known to Qt; needed once, before the first answer.
  static void registerTypes();

 private:
  QPointer<QDBusVirtualObject> original_;
};

/// Those who know the identifiers.
std::vector<IdentifierSource*>& identifierSources();

}  // namespace vemra::qt::atspi
