#pragma once

#include <optional>

#include <QAccessible>
#include <QRect>
#include <QString>

namespace vemra::qt {

/// Implements Qt's text interface for a text that clients can only read. A character that is not
/// drawn gets an even share of the element.
class ReadOnlyText : public QAccessibleTextInterface {
 public:
  void selection(int, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  QString text(int start, int end) const override;
  int characterCount() const override { return static_cast<int>(wholeText().size()); }
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int, int) override {}
  QString attributes(int offset, int* start, int* end) const override;

 protected:
  virtual QString wholeText() const = 0;
  virtual QRect textRect() const = 0;
  /// The character that is drawn at a point of the screen, -1 for none; nil if each character is to
  /// be asked for its rectangle.
  virtual std::optional<int> drawnAt(const QPoint& /*point*/) const { return std::nullopt; }
  /// Where the character is drawn on the screen; a null rectangle when it is not drawn.
  virtual QRect drawnRect(int offset) const {
    static_cast<void>(offset);
    return {};
  }
};

}  // namespace vemra::qt
