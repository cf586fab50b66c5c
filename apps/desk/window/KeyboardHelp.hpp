#pragma once

#include <QDialog>

class QTextEdit;

namespace vemra::desk {

/// The keys of the window and their meanings, in a table of two columns, or of one where
/// the screen is too narrow. Its text can be selected
/// and copied, with the keyboard too; it scrolls where the screen is too small. Deletes itself when
/// it is closed. Show it with `open`.
class KeyboardHelp : public QDialog {
  Q_OBJECT

 public:
  explicit KeyboardHelp(QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  enum class Columns { one, two };
  void fill(Columns columns);
  void fit();

  QTextEdit* table_;
};

}  // namespace vemra::desk
