#include "VemraQt/widgets/WidgetPool.hpp"

#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "VemraQt/widgets/PushButton.hpp"
#include "VemraQt/widgets/TextLabel.hpp"

#include <algorithm>

namespace vemra::qt {

namespace {

constexpr std::size_t mostResting = 24;

}  // namespace

ElementWidget& WidgetPool::take(const ui::Element& element) {
  const Shape shape = shapeOf(element);
  auto shelf = std::ranges::find(shelves_, shape, &Shelf::shape);
  if (shelf == shelves_.end()) shelf = shelves_.insert(shelf, Shelf{shape, {}, {}});
  if (!shelf->resting.empty()) {
    ElementWidget* widget = shelf->resting.back();
    shelf->resting.pop_back();
    return *widget;
  }
  shelf->all.push_back(make(shape));
  return *shelf->all.back();
}

void WidgetPool::giveBack(ElementWidget& widget) {
  widget.rest();
  for (Shelf& shelf : shelves_) {
    if (std::ranges::find(shelf.all, &widget, &std::unique_ptr<ElementWidget>::get) !=
        shelf.all.end()) {
      shelf.resting.push_back(&widget);
    }
  }
}

void WidgetPool::hideResting() {
  for (Shelf& shelf : shelves_) {
    for (ElementWidget* widget : shelf.resting) {
      if (!widget->widget().isHidden()) widget->widget().hide();
    }
    while (shelf.resting.size() > mostResting) {
      ElementWidget* gone = shelf.resting.front();
      shelf.resting.erase(shelf.resting.begin());
      auto owned = std::ranges::find(shelf.all, gone, &std::unique_ptr<ElementWidget>::get);
      // It may be the very widget whose signal is being handled.
      owned->release()->widget().deleteLater();
      shelf.all.erase(owned);
    }
  }
}

void WidgetPool::restyle() {
  for (Shelf& shelf : shelves_) {
    for (const auto& widget : shelf.all)
      widget->widget().setFont(page_.looks.font(shelf.shape.font));
  }
}

std::size_t WidgetPool::size() const {
  std::size_t size = 0;
  for (const Shelf& shelf : shelves_) size += shelf.all.size();
  return size;
}

WidgetPool::Shape WidgetPool::shapeOf(const ui::Element& element) {
  return {element.kind(), element.style().font,
          element.kind() == ui::ElementKind::text ? element.style().foreground
                                                  : ui::ForegroundStyle::primary,
          element.buttonStyle()};
}

std::unique_ptr<ElementWidget> WidgetPool::make(const Shape& shape) const {
  std::unique_ptr<ElementWidget> made;
  switch (shape.kind) {
    case ui::ElementKind::button:
      made = std::make_unique<PushButton>(parent_, page_, shape.buttonStyle);
      break;
    case ui::ElementKind::picker:
      made = std::make_unique<ChoiceBox>(parent_, page_);
      break;
    case ui::ElementKind::textField:
      made = std::make_unique<LineField>(parent_, page_);
      break;
    default:
      made = std::make_unique<TextLabel>(parent_, page_);
  }
  made->widget().setFont(page_.looks.font(shape.font));
  return made;
}

}  // namespace vemra::qt
