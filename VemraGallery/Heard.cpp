#include "VemraGallery/Heard.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "VemraQt/ViewWidget.hpp"

#include <QAccessible>
#include <QMetaEnum>

namespace vemra::gallery {
namespace {

/// "PushButton" as "push button".
std::string wordsOf(QAccessible::Role role) {
  const char* const key = QMetaEnum::fromType<QAccessible::Role>().valueToKey(role);
  std::string words;
  for (const char c : std::string_view(key != nullptr ? key : "Object")) {
    const bool isUpper = c >= 'A' && c <= 'Z';
    if (isUpper && !words.empty()) words += ' ';
    words += isUpper ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return words;
}

std::string lineOf(QAccessibleInterface& object) {
  std::string line = wordsOf(object.role());
  const auto say = [&](QAccessible::Text text, std::string_view before) {
    const std::string said = object.text(text).toStdString();
    if (said.empty()) return;
    line += before;
    line += text::quotedOnOneLine(said);
  };
  say(QAccessible::Name, " ");
  say(QAccessible::Value, ", value ");
  say(QAccessible::Description, ", described as ");
  const QAccessible::State state = object.state();
  if (state.disabled) line += ", unavailable";
  if (state.checked) line += ", checked";
  return line;
}

class Reader {
 public:
  explicit Reader(std::size_t limit) : limit_(limit) {}

  void read(QAccessibleInterface& object, std::size_t level) {
    if (lines_.size() < limit_) {
      lines_.push_back(std::string(2 * level, ' ') + lineOf(object));
    } else {
      ++left_;
    }
    // Does not count below a row that is not read, because that would describe every row.
    if (lines_.size() == limit_ && left_ > 0) return;
    for (int index = 0; index < object.childCount(); ++index) {
      if (lines_.size() == limit_) {
        left_ += static_cast<std::size_t>(object.childCount() - index);
        return;
      }
      if (QAccessibleInterface* child = object.child(index)) read(*child, level + 1);
    }
  }

  std::vector<std::string> take() {
    if (left_ > 0)
      lines_.push_back("… and " + std::to_string(left_) + " more, with what they hold");
    return std::move(lines_);
  }

 private:
  std::size_t limit_;
  std::size_t left_ = 0;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> heard(ui::ViewGraph& graph, std::size_t limit) {
  qt::ViewWidget widget(graph);
  widget.setAttribute(Qt::WA_DontShowOnScreen);
  widget.resize(720, 600);
  widget.show();
  Reader reader(limit);
  if (QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&widget)) {
    for (int index = 0; index < page->childCount(); ++index) {
      if (QAccessibleInterface* child = page->child(index)) reader.read(*child, 0);
    }
  }
  return reader.take();
}

}  // namespace vemra::gallery
