#pragma once

#include <QLabel>
#include <QPointer>

namespace vemra::desk {

/// The roles of text in the panes.
enum class TextRole { title, heading, strong, body, quiet };
/// The colour of a text: that of its role, or that of links.
enum class TextInk { ofRole, ofLinks };

/// A label with wrapped, literal text that can be selected and copied; a word that is longer than a
/// line is broken too. It keeps the look of its role when the user changes the size of texts or the
/// colours.
class RoleLabel : public QLabel {
  Q_OBJECT

 public:
  RoleLabel(const QString& text, TextRole role, TextInk ink = TextInk::ofRole);

  int heightForWidth(int width) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool breakWords() const;
  void takeLook();
  void watchParent();

  QPointer<QWidget> parent_;  ///< whose font this label follows
  TextRole role_;
  TextInk ink_;
  bool takingLook_ = false;
};

}  // namespace vemra::desk
