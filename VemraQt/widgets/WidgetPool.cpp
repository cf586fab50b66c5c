#include "VemraQt/widgets/WidgetPool.hpp"

#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "VemraQt/widgets/PushButton.hpp"
#include "VemraQt/widgets/TextLabel.hpp"

#include <algorithm>

namespace vemra::qt {

namespace {

constexpr std::size_t mostUnused = 24;

}  // namespace

ElementWidget& WidgetPool::acquire(const ui::Element& element) {
  Shelf& shelf = shelfFor(keyOf(element));
  if (!shelf.unused.empty()) {
    ElementWidget* widget = shelf.unused.back();
    shelf.unused.pop_back();
    return *widget;
  }
  shelf.all.push_back(make(shelf.key));
  return *shelf.all.back();
}

void WidgetPool::changeKey(ElementWidget& widget, const ui::Element& element) {
  const Key key = keyOf(element);
  if (shelfOf(widget).key == key) return;
  Shelf& after = shelfFor(key);
  Shelf& before = shelfOf(widget);  // found after `after`: a new shelf may move the others
  auto owned = std::ranges::find(before.all, &widget, &std::unique_ptr<ElementWidget>::get);
  after.all.push_back(std::move(*owned));
  before.all.erase(owned);
  widget.widget().setFont(page_.theme.font(key.font));
}

void WidgetPool::recycle(ElementWidget& widget) {
  widget.reset();
  shelfOf(widget).unused.push_back(&widget);
}

WidgetPool::Shelf& WidgetPool::shelfFor(const Key& key) {
  const auto shelf = std::ranges::find(shelves_, key, &Shelf::key);
  return shelf != shelves_.end() ? *shelf : shelves_.emplace_back(Shelf{key, {}, {}});
}

WidgetPool::Shelf& WidgetPool::shelfOf(const ElementWidget& widget) {
  return *std::ranges::find_if(shelves_, [&](const Shelf& shelf) {
    return std::ranges::find(shelf.all, &widget, &std::unique_ptr<ElementWidget>::get) !=
           shelf.all.end();
  });
}

void WidgetPool::hideUnused() {
  for (Shelf& shelf : shelves_) {
    for (ElementWidget* widget : shelf.unused) {
      if (!widget->widget().isHidden()) widget->widget().hide();
    }
    while (shelf.unused.size() > mostUnused) {
      ElementWidget* gone = shelf.unused.front();
      shelf.unused.erase(shelf.unused.begin());
      auto owned = std::ranges::find(shelf.all, gone, &std::unique_ptr<ElementWidget>::get);
      // This may be the widget whose signal is being handled.
      owned->release()->widget().deleteLater();
      shelf.all.erase(owned);
    }
  }
}

void WidgetPool::restyle() {
  for (Shelf& shelf : shelves_) {
    for (const auto& widget : shelf.all) widget->widget().setFont(page_.theme.font(shelf.key.font));
  }
}

std::size_t WidgetPool::size() const {
  std::size_t size = 0;
  for (const Shelf& shelf : shelves_) size += shelf.all.size();
  return size;
}

WidgetPool::Key WidgetPool::keyOf(const ui::Element& element) {
  return {element.kind(), element.style().font,
          element.kind() == ui::ElementKind::text ? element.style().foreground
                                                  : ui::ForegroundStyle::primary,
          element.buttonStyle()};
}

std::unique_ptr<ElementWidget> WidgetPool::make(const Key& key) const {
  std::unique_ptr<ElementWidget> made;
  switch (key.kind) {
    case ui::ElementKind::button:
      made = std::make_unique<PushButton>(parent_, page_);
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
  made->widget().setFont(page_.theme.font(key.font));
  return made;
}

}  // namespace vemra::qt
