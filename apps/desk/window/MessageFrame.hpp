#pragma once

#include "apps/desk/window/AlertFrame.hpp"

#include <functional>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace vemra::desk {

class NextTabStop;
class WrappingRow;

/// The place of a message: a bar beside the content, or a page in place of the content.
enum class MessageForm { bar, page };

/// A message with buttons for what can be done about it. A long text is cut; a screen reader hears
/// each message, also one in the words of the previous one: something has failed once more.
///
/// A bar is hidden until it has a message; where it is too narrow, its buttons stand below the
/// text. A page shows its text in lines of at most about 75 characters.
class MessageFrame : public AlertFrame {
  Q_OBJECT

 protected:
  /// - Parameter name: the object name.
  MessageFrame(MessageForm form, const QString& name, QWidget* parent);

  /// \name For the constructor of a subclass @{
  /// The title of a page.
  void setTitle(const QString& title);
  /// A quieter line below the message of a page.
  void addRemark(const QString& remark);
  /// A button behind the others.
  QPushButton* addButton(const QString& title, const QString& name, std::function<void()> pressed);
  /// @}

  /// Shows a message and announces all of it.
  void setMessage(const QString& whole);
  /// Shows a message. Announces all of it when the bar appears, and else only `news`, if not "".
  void setMessage(const QString& whole, const QString& news);
  /// With the next announcement that button of the bar becomes the next Tab stop; none with
  /// nullptr.
  void setNextTabStop(QPushButton* button) { nextTabStop_ = button; }
  /// Hides a bar; a control that had the focus before one of its buttons has it again.
  void dismiss();

  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange();
  void limitLines();
  void placeButtons();

  MessageForm form_;
  QString title_;
  QLabel* message_;
  QBoxLayout* content_;
  WrappingRow* buttons_;
  QPushButton* nextTabStop_ = nullptr;
  NextTabStop* tabStop_;
};

}  // namespace vemra::desk
