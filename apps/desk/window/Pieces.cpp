#include "apps/desk/window/Pieces.hpp"

#include "apps/desk/window/KeyInView.hpp"
#include "apps/desk/window/LeadingEdge.hpp"
#include "apps/desk/window/LinkLabel.hpp"
#include "apps/desk/window/Localized.hpp"

#include <algorithm>
#include <utility>

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBoundaryFinder>
#include <QVBoxLayout>

namespace vemra::desk {

namespace {

QLabel* paneLabel(const QString& text, TextRole role) {
  QLabel* label = makeLabel(text, role);
  label->setContentsMargins(besideTexts, 0, besideTexts, 0);
  return label;
}

/// A piece ends behind a blank if there is one this near to its end, so that words stay whole.
constexpr qsizetype farthestBlank = 80;

}  // namespace

qsizetype endOfPiece(const QString& text, qsizetype from) {
  const qsizetype left = text.size() - from;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.constData() + from,
                             std::min(left, mostUnitsAtOnce + 1));
  qsizetype length = 0;
  for (qsizetype i = 0; i < mostCharactersAtOnce && length < left; ++i) {
    const qsizetype next = finder.toNextBoundary();
    if (next < 0 || next > mostUnitsAtOnce || next - length > mostUnitsOfACharacter) break;
    length = next;
  }
  if (length == left) return text.size();
  const qsizetype end = from + length;
  if (length == 0) {
    const qsizetype cut = from + mostUnitsOfACharacter;
    return text[cut].isLowSurrogate() ? cut - 1 : cut;
  }
  for (qsizetype blank = end; blank > end - farthestBlank && blank > from; --blank) {
    if (text[blank - 1].isSpace()) return blank;
  }
  return end;
}

QString firstPiece(const QString& text) {
  const qsizetype end = endOfPiece(text, 0);
  return end == text.size() ? text : text.left(end) + u'…';
}

Pieces::Pieces(const QString& what, AddNext addNext, QWidget* parent)
    : QWidget(parent), addNext_(std::move(addNext)), key_(what) {
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum);  // see `RoleLabel`
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  pieces_ = new QVBoxLayout;
  pieces_->setSpacing(4);
  column->addLayout(pieces_);
  more_ = new QPushButton(localized("Show more"));
  more_->setObjectName("desk.side.more");
  more_->setAccessibleName(localized("Show more of %1").arg(what));
  more_->setFocusPolicy(Qt::StrongFocus);
  more_->setAutoDefault(true);  // otherwise Return presses it on some desktops only
  scrollInBeforeKeys(*more_);
  auto* line = new QHBoxLayout;
  line->setContentsMargins(besideTexts, 0, 0, 0);
  line->addWidget(more_, 0, Qt::AlignLeading);
  line->addStretch(1);
  column->addLayout(line);
  connect(more_, &QPushButton::clicked, this, &Pieces::showNext);
  showNext();
}

QStringList Pieces::path() const {
  QStringList path;
  for (const QWidget* widget = this; widget; widget = widget->parentWidget()) {
    if (const auto* pieces = qobject_cast<const Pieces*>(widget)) path.prepend(pieces->key_);
  }
  return path;
}

void Pieces::showUpTo(int count) {
  while (shown_ < count && hasMore_) showNext();
}

void Pieces::showNext() {
  const QList<QWidget*> before = findChildren<QWidget*>();
  hasMore_ = addNext_(*pieces_);
  ++shown_;
  // Put the links and buttons of the new piece before "Show more" in the Tab order, as in the
  // reading order.
  for (QWidget* control : findChildren<QWidget*>()) {
    if (before.contains(control) || !(control->focusPolicy() & Qt::TabFocus)) continue;
    QWidget* last = more_->previousInFocusChain();
    while (last != window() && !(last->focusPolicy() & Qt::TabFocus)) {
      last = last->previousInFocusChain();
    }
    // The focus chain begins at the window: `last` is the window when no other widget precedes this
    // control.
    last == window() ? setTabOrder(control, more_) : setTabOrder(last, control);
  }
  if (!hasMore_) more_->hide();  // the focus moves to the next control
}

void addText(QVBoxLayout& column, const QString& text, TextRole role) {
  if (text.isEmpty()) return;
  if (endOfPiece(text, 0) == text.size()) {
    column.addWidget(paneLabel(text, role));
    return;
  }
  auto* made = new Pieces(localized("the text"),
                          [text, role, from = qsizetype{0}](QVBoxLayout& pieces) mutable {
                            const qsizetype end = endOfPiece(text, from);
                            pieces.addWidget(paneLabel(text.mid(from, end - from), role));
                            from = end;
                            return from < text.size();
                          });
  made->setKey("the text\n" + text);
  column.addWidget(made);
}

void addLink(QVBoxLayout& column, const QString& text, TextRole role,
             std::function<void()> pressed) {
  auto* link = new LinkLabel(firstPiece(text), role);
  alignAtLeadingEdge(*link);
  link->setContentsMargins(besideTexts, 0, besideTexts, 0);
  QObject::connect(link, &LinkLabel::pressed, link, std::move(pressed));
  column.addWidget(link);
}

Pieces* addEntries(QVBoxLayout& column, const QString& what, std::size_t count,
                   std::function<void(QVBoxLayout& column, std::size_t index)> add) {
  if (count <= mostEntriesAtOnce) {
    for (std::size_t index = 0; index < count; ++index) add(column, index);
    return nullptr;
  }
  auto* made = new Pieces(
      what, [count, add = std::move(add), next = std::size_t{0}](QVBoxLayout& pieces) mutable {
        const std::size_t end = std::min(count, next + mostEntriesAtOnce);
        for (; next < end; ++next) add(pieces, next);
        return next < count;
      });
  column.addWidget(made);
  return made;
}

}  // namespace vemra::desk
