#pragma once

#include <QFrame>
#include <QString>
#include <QTimer>

class QBoxLayout;
class QLabel;
class QLineEdit;

namespace vemra::desk {

class Announcement;
class WrappingRow;

/// A bar with a field for the text to find, the number of the shown hit among all, and buttons;
/// where it is too narrow, the buttons stand below the field.
class FindBar : public QFrame {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent = nullptr);

  QString text() const;
  /// Shows the bar, gives its field the focus and selects the text in it.
  void open();
  /// A line such as "3 of 17"; assistive technology reads it with the field.
  ///
  /// - Parameter news: announced when no other result follows within a moment, so that a person who
  ///   types hears the result of the whole text; "" announces nothing.
  void setResult(const QString& result, const QString& news);

 Q_SIGNALS:
  void textChanged(const QString& text);
  void nextWanted();
  void previousWanted();
  /// Close, and show the hit with the focus in it.
  void hitWanted();
  void closeWanted();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeButtons();

  QLineEdit* field_;
  QLabel* result_;
  Announcement* announcement_;
  QString news_;
  QTimer settled_;  ///< runs since the last result
  QBoxLayout* content_;
  WrappingRow* buttons_;
};

}  // namespace vemra::desk
