#pragma once

#include "VemraQt/accessibility/ObjectHost.hpp"
#include "VemraQt/atspi/LaterQt.hpp"

#include <vector>

#include <QAccessibleInterface>
#include <QMap>

namespace vemra::qt {

/// The base of all accessible objects of a tree: of rows, elements and choices, as assistive
/// technology sees them. Their `object()` is nullptr, because elements come and go without widgets.
class AccessibleObject : public QAccessibleInterface {
 public:
  explicit AccessibleObject(ObjectHost& tree) : tree_(tree) {}

  // An object whose row or element is gone is deleted soon; until then it answers calls, so it is
  // valid.
  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QString text(QAccessible::Text kind) const final {
    return atspi::asksForIdentifier(kind) ? identifier() : textOf(kind);
  }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessibleInterface* childAt(int x, int y) const override;
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QAccessible::Id id() const { return id_; }
  /// The accessibility identifier byte for byte; "" when the object has none.
  virtual QString identifier() const { return QStringLiteral(""); }
  /// The object's name or value; a null string for a kind of text that the object does not have.
  virtual QString textOf(QAccessible::Text kind) const = 0;
  /// The attributes that assistive technology gets, without the identifier.
  virtual QMap<QString, QString> objectAttributes() const { return {}; }
  virtual void scrollIn() {}
  /// The objects of a picker's choices, which leave together with the picker.
  virtual std::vector<AccessibleObject*> ownObjects() const { return {}; }
  ObjectHost& tree() const { return tree_; }
  /// Gives the object its id. Call it once, before a client gets the object.
  void registerWithQt() { id_ = QAccessible::registerAccessibleInterface(this); }
  /// Marks the object as leaving, because its row or element is gone; `LeavingObjects` deletes it.
  void leave() { leaving_ = true; }
  bool isLeaving() const { return leaving_; }
  /// The object with that id; nullptr when there is none or when it is leaving.
  static AccessibleObject* living(QAccessible::Id id);

  enum class Reported { nothing, no, yes };
  Reported showing = Reported::nothing;  ///< the visibility last reported to clients

 private:
  ObjectHost& tree_;
  QAccessible::Id id_ = 0;
  bool leaving_ = false;
};

}  // namespace vemra::qt
