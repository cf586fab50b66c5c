#pragma once

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QApplication>
#include <QMenu>

namespace vemra::qttest {

/// A picker in a window with the focus, and the choices made in it.
class ShownPicker : public ShownWidget {
 protected:
  ShownPicker() {
    pageOf(widget).onDeliver = [this](ui::NodeID, const ui::Event& event) {
      if (const auto* select = std::get_if<ui::Select>(&event))
        chosen.push_back(select->tag.name());
    };
  }
  ~ShownPicker() override {
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  }

  using Choices = std::vector<std::pair<std::string, int>>;

  ui::View picker(const Choices& choices) {
    std::vector<ui::View> rows;
    for (const auto& [label, tag] : choices) {
      rows.push_back(ui::Text(ui::verbatim(label)).tag(Choice{tag}));
    }
    return ui::Picker(
               "Title",
               ui::Binding<Choice>([this] { return Choice{selected}; },
                                   [this](const Choice& choice) { selected = choice.value; }),
               ui::Children(std::move(rows)))
        .accessibilityIdentifier("picker");
  }
  void show(const Choices& choices) { widget.setRoot(picker(choices)); }

  qt::ChoiceBox& box() const { return *widget.viewport()->findChild<qt::ChoiceBox*>("picker"); }
  std::vector<std::string> items() const {
    std::vector<std::string> items;
    for (int i = 0; i < box().count(); ++i) items.push_back(box().itemText(i).toStdString());
    return items;
  }
  static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  QAccessibleInterface& element() const {
    return *QAccessible::accessibleInterface(identifiersOf(widget).find("picker").front());
  }

  int selected = 1;
  std::vector<std::string> chosen;
};

}  // namespace vemra::qttest
