#pragma once

#include <QFrame>

class QLabel;
class QLineEdit;

namespace vemra::desk {

/// A bar with a field for the text to find, the number of the shown hit among all, and buttons.
class FindBar : public QFrame {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent = nullptr);

  QString text() const;
  /// Shows the bar, gives its field the focus and selects the text in it.
  void open();
  /// A line such as "3 of 17"; assistive technology reads it with the field.
  void setResult(const QString& result);

 Q_SIGNALS:
  void textChanged(const QString& text);
  void nextWanted();
  void previousWanted();
  /// Close, and show the hit with the focus in it.
  void hitWanted();
  void closeWanted();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QLineEdit* field_;
  QLabel* result_;
};

}  // namespace vemra::desk
