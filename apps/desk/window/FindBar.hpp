#pragma once

#include <vector>

#include <QFrame>
#include <QString>
#include <QTimer>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vemra::desk {

class Announcement;
class WrappingRow;

/// A bar with a field for the text to find, the number of the shown hit among all, and buttons;
/// where it is too narrow, the buttons stand below the field, and so does the number.
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
  ///   types hears the result of the whole text, and when it differs from the news before; ""
  ///   announces nothing.
  void setResult(const QString& result, const QString& news);
  /// The next result is news, also in the words of the one before: the person has asked for it.
  void expectNews() { announced_.clear(); }
  /// Enables the buttons that need a hit. When one of them loses its use and has the focus, the
  /// field gets it.
  void setHasHit(bool hasHit);

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
  QString announced_;  ///< the news before, for the same text and the same hit
  QTimer settled_;     ///< runs since the last result
  QBoxLayout* content_;
  QBoxLayout* search_;  ///< the field and the result
  WrappingRow* buttons_;
  std::vector<QPushButton*> ofHit_;  ///< the buttons that need a hit
};

}  // namespace vemra::desk
