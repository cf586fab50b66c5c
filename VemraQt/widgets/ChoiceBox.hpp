#pragma once

#include "VemraPlatform/ui/Tag.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"

#include <vector>

#include <QComboBox>
#include <QPointer>

class QMenu;

namespace vemra::qt {

/// One thing that can be chosen in a picker.
struct Choice {
  QString label;
  ui::Tag tag;
};

/// The tagged rows of a picker, in tree order.
std::vector<Choice> choicesOf(const page::Node& picker);
/// The place of the picker's selection among them; -1 when it is none of them.
int currentChoice(const page::Node& picker, const std::vector<Choice>& choices);

/// A Picker: a button that shows the choice and opens a menu.
///
/// It does not answer the wheel, which belongs to the page. Its menu is a plain menu and not an
/// item view, whose accessible table does not survive a change of its rows; so a letter does not
/// search in one, either.
class ChoiceBox final : public QComboBox, public ElementWidget {
  Q_OBJECT

 public:
  ChoiceBox(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }

  void showPopup() override;
  void hidePopup() override;

 protected:
  void take(const page::Node& leaf, const TextShape& shape) override;
  void letGo() override { hidePopup(); }
  void paintEvent(QPaintEvent*) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void choose(int index);
  /// Makes another choice the current one, as a person does.
  void moveTo(int index);
  /// Chooses the next one, after the current one and round, whose label begins with `typed` in
  /// either case.
  void chooseByPrefix(const QString& typed);

  std::vector<Choice> choices_;
  TextShape shape_;
  QPointer<QMenu> menu_;
};

}  // namespace vemra::qt
