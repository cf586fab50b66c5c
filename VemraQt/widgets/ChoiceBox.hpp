#pragma once

#include "VemraQt/widgets/Choices.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"

#include <vector>

#include <QComboBox>
#include <QPointer>

class QMenu;

namespace vemra::qt {

/// A Picker: a button that shows the title, unless it is hidden, and the current choice, and opens
/// a menu.
///
/// It ignores the wheel, which scrolls the page. Its menu is a plain menu instead of an item view,
/// because the item view's accessible table does not survive a change of its rows; so typing a
/// letter does not search in the open menu either.
class ChoiceBox final : public QComboBox, public ElementWidget {
  Q_OBJECT

 public:
  ChoiceBox(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }

  /// The style that draws the picker: `controlStyle`, or Fusion where that style leaves too little
  /// room for the text. Adwaita's arrow is as wide as the picker is high, and several lines are high.
  QStyle& drawingStyle() const;

  void showPopup() override;
  void hidePopup() override;

 protected:
  void updateTo(const page::Node& leaf, const TextShape& shape) override;
  void endInteraction() override { hidePopup(); }
  void paintEvent(QPaintEvent*) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void choose(int index);
  /// Chooses as a person does: sends the event and shows the choice.
  void moveTo(int index);
  /// Chooses the next choice whose label begins with `typed`, ignoring case; searches after the
  /// current choice and wraps around.
  void chooseByPrefix(const QString& typed);

  std::vector<Choice> choices_;
  TextShape shape_;
  QPointer<QMenu> menu_;
};

}  // namespace vemra::qt
