#include "VemraQt/accessibility/AccessibleControls.hpp"

#include "VemraQt/accessibility/AccessibleList.hpp"
#include "VemraQt/accessibility/AccessibleSection.hpp"
#include "VemraQt/page/Page.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "VemraQt/widgets/LongText.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

QAccessible::Role AccessibleText::role() const {
  const ui::Node* shown = node();
  return shown && headingLevel(shown->element) ? QAccessible::Heading : QAccessible::StaticText;
}

QMap<QString, QString> AccessibleText::objectAttributes() const {
  const ui::Node* shown = node();
  const int level = shown ? headingLevel(shown->element) : 0;
  if (!level) return {};
  return {{QStringLiteral("level"), QString::number(level)}};
}

void* AccessibleText::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return AccessibleElement::interface_cast(type);
}

/// The text in lines; nullptr until it has been measured.
const TextShape* AccessibleText::shape() const {
  const ui::Node* shown = node();
  const Page& page = tree().page();
  const page::Node* leaf = shown ? page.tree().find(shown->id) : nullptr;
  return leaf && leaf->measuredWidth >= 0 ? &page.shown(*leaf).shape : nullptr;
}

std::optional<int> AccessibleText::drawnAt(const QPoint& point) const {
  const TextShape* const text = shape();
  if (!text || !text->parts()) return std::nullopt;
  return text->offsetAt(point, rect(), tree().area().layoutDirection());
}

QRect AccessibleText::drawnRect(int offset) const {
  const TextShape* const text = shape();
  if (!text) return {};
  // A long text is not converted for each character.
  return text->characterRect(text->parts() ? text->parts()->text() : wholeText(), offset, rect(),
                             tree().area().layoutDirection());
}

std::vector<page::Choice> AccessiblePicker::choices() const {
  const ui::Node* picker = node();
  return picker ? page::choicesOf(*picker) : std::vector<page::Choice>();
}

QString AccessiblePicker::wholeText() const {
  const ui::Node* picker = node();
  if (!picker) return {};
  const std::vector<page::Choice> all = choices();
  const auto chosen = page::chosenAmong(all, picker->element);
  return chosen ? toQString(all[*chosen].label) : QString();
}

QString AccessiblePicker::textOf(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? wholeText() : AccessibleElement::textOf(kind);
}

QAccessible::State AccessiblePicker::state() const {
  QAccessible::State state = AccessibleElement::state();
  state.hasPopup = true;
  state.expandable = true;
  state.collapsed = true;
  return state;
}

int AccessiblePicker::childCount() const {
  return static_cast<int>(choices().size());
}

QAccessibleInterface* AccessiblePicker::child(int place) const {
  if (place < 0 || place >= childCount()) return nullptr;
  while (static_cast<int>(choices_.size()) <= place) {
    auto* choice = new AccessibleChoice(const_cast<AccessiblePicker&>(*this), choices_.size());
    choice->registerWithQt();
    choices_.push_back(choice);
  }
  return choices_[static_cast<std::size_t>(place)];
}

int AccessiblePicker::indexOfChild(const QAccessibleInterface* object) const {
  auto found = std::ranges::find(choices_, object);
  return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

QList<QAccessibleInterface*> AccessiblePicker::selectedItems() const {
  QList<QAccessibleInterface*> selected;
  for (int place = 0; place < childCount(); ++place) {
    if (child(place)->state().selected) selected << child(place);
  }
  return selected;
}

bool AccessiblePicker::select(QAccessibleInterface* choice) {
  if (indexOfChild(choice) < 0 || choice->state().disabled) return false;
  choice->actionInterface()->doAction(pressAction());
  return true;
}

void* AccessiblePicker::interface_cast(QAccessible::InterfaceType type) {
  if (atspi::asksForSelection(type)) return static_cast<atspi::SelectionInterface*>(this);
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return AccessibleElement::interface_cast(type);
}

void AccessiblePicker::doAction(const QString& name) {
  if (name != showMenuAction()) {
    AccessibleElement::doAction(name);
    return;
  }
  const ui::Node* picker = node();
  if (!picker || !picker->element.style().enabled) return;
  const ui::NodeID id = picker->id;
  Page& page = tree().page();
  focus(page, rowPlace(), id);  // may remove this object
  const page::Node* leaf = page.tree().find(id);
  auto* box = leaf ? dynamic_cast<ChoiceBox*>(page.shown(*leaf).widget) : nullptr;
  if (box) box->showPopup();
}

std::optional<page::Choice> AccessibleChoice::choice() const {
  if (isLeaving()) return std::nullopt;
  const std::vector<page::Choice> all = picker_.choices();
  return index_ < all.size() ? std::optional(all[index_]) : std::nullopt;
}

QString AccessibleChoice::textOf(QAccessible::Text kind) const {
  const auto own = choice();
  return own && kind == QAccessible::Name ? toQString(own->label) : QString();
}

QAccessible::State AccessibleChoice::state() const {
  QAccessible::State state;
  const auto own = choice();
  const ui::Node* picker = own ? picker_.node() : nullptr;
  state.offscreen = true;  // choices are visible only in the menu, which has items of its own
  state.disabled = !picker || !picker->element.style().enabled;
  state.selectable = true;
  state.selected = picker && picker->element.selection() == own->tag;
  return state;
}

QString AccessibleChoice::identifier() const {
  const auto own = choice();
  return own ? toQString(own->identifier) + QStringLiteral("") : QStringLiteral("");
}

void* AccessibleChoice::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                              : nullptr;
}

void AccessibleChoice::doAction(const QString& name) {
  const auto own = choice();
  const ui::Node* picker = own ? picker_.node() : nullptr;
  if (!picker || name != pressAction()) return;
  tree().page().deliver(picker->id, ui::Select{own->tag});
}

LineField* AccessibleField::widget() const {
  const ui::Node* field = node();
  const page::Node* leaf = field ? tree().page().tree().find(field->id) : nullptr;
  return leaf ? dynamic_cast<LineField*>(tree().page().shown(*leaf).widget) : nullptr;
}

QRect AccessibleField::drawnRect(int offset) const {
  const LineField* edit = widget();
  if (!edit || !edit->isVisible()) return {};
  const QRect drawn = edit->characterRect(offset);
  return {edit->mapToGlobal(drawn.topLeft()), drawn.size()};
}

QString AccessibleField::wholeText() const {
  const ui::Node* field = node();
  return field ? toQString(field->element.text()) : QString();
}

QString AccessibleField::textOf(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? wholeText() : AccessibleElement::textOf(kind);
}

void AccessibleField::setText(QAccessible::Text kind, const QString& text) {
  if (kind == QAccessible::Value) replaceText(0, characterCount(), text);
}

QAccessible::State AccessibleField::state() const {
  QAccessible::State state = AccessibleElement::state();
  state.editable = !state.disabled;
  state.selectableText = true;
  return state;
}

void* AccessibleField::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  if (type == QAccessible::EditableTextInterface) {
    return static_cast<QAccessibleEditableTextInterface*>(this);
  }
  return AccessibleElement::interface_cast(type);
}

void AccessibleField::selection(int, int* start, int* end) const {
  *start = *end = 0;
  const QLineEdit* edit = widget();
  if (!edit || !edit->hasSelectedText()) return;
  *start = edit->selectionStart();
  *end = edit->selectionEnd();
}

int AccessibleField::selectionCount() const {
  const QLineEdit* edit = widget();
  return edit && edit->hasSelectedText() ? 1 : 0;
}

void AccessibleField::removeSelection(int) {
  if (QLineEdit* edit = widget()) edit->deselect();
}

void AccessibleField::setSelection(int, int start, int end) {
  if (QLineEdit* edit = widget()) edit->setSelection(start, end - start);
}

int AccessibleField::cursorPosition() const {
  const QLineEdit* edit = widget();
  return edit ? edit->cursorPosition() : characterCount();
}

void AccessibleField::setCursorPosition(int position) {
  if (QLineEdit* edit = widget()) edit->setCursorPosition(position);
}

void AccessibleField::replaceText(int start, int end, const QString& text) {
  const ui::Node* field = node();
  if (!field || !field->element.style().enabled) return;
  QString whole = wholeText();
  const int size = static_cast<int>(whole.size());
  start = std::clamp(start, 0, size);
  end = end < 0 ? size : std::clamp(end, start, size);
  const QString removed = whole.mid(start, end - start);
  whole.replace(start, end - start, text);
  const QAccessible::Id self = id();
  tree().page().deliver(field->id, ui::EditText{whole.toStdString()});
  // The field's widget reports typed text to clients, but not this change; so send the event here.
  auto* still = dynamic_cast<AccessibleField*>(QAccessible::accessibleInterface(self));
  if (!still || still->wholeText() != whole || removed == text) return;
  QAccessibleTextUpdateEvent event(still, start, removed, text);
  QAccessible::updateAccessibility(&event);
}

AccessibleObject* makeAccessibleObject(ObjectHost& tree, AccessibleRow* row,
                                       const ElementSlot& slot) {
  AccessibleObject* made = nullptr;
  switch (slot.kind) {
    case ui::ElementKind::forEach:
      made = new AccessibleList(tree, slot.path, slot.node);
      break;
    case ui::ElementKind::vStack:
    case ui::ElementKind::hStack:
      made = new AccessibleSection(tree, slot.path);
      break;
    case ui::ElementKind::button:
      made = new AccessibleButton(tree, row, slot.path);
      break;
    case ui::ElementKind::picker:
      made = new AccessiblePicker(tree, row, slot.path);
      break;
    case ui::ElementKind::textField:
      made = new AccessibleField(tree, row, slot.path);
      break;
    default:
      made = new AccessibleText(tree, row, slot.path);
  }
  made->registerWithQt();
  return made;
}

}  // namespace vemra::qt
