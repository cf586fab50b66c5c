#include "apps/desk/window/KeyboardHelp.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include <QDialogButtonBox>
#include <QEvent>
#include <QKeySequence>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QTextTable>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

QString keys(const QKeySequence& sequence) {
  return isolated(sequence.toString(QKeySequence::NativeText));
}

/// Keys, and their meaning.
using Rows = std::vector<std::pair<QString, QString>>;

Rows rows() {
  return {
      {keys(Qt::Key_F6), localized("The next pane")},
      {keys(Qt::SHIFT | Qt::Key_F6), localized("The previous pane")},
      {keys(Qt::CTRL | Qt::Key_PageDown), localized("The next goal")},
      {keys(Qt::CTRL | Qt::Key_PageUp), localized("The previous goal")},
      {localized("Up, Down, Home, End"), localized("Another goal, in the list")},
      {keys(Qt::Key_Tab), localized("The next control")},
      {localized("Space, Return"), localized("Press the control")},
      {keys(QKeySequence::Find), localized("Find people")},
      {keys(QKeySequence::FindNext), localized("The next person who was found")},
      {keys(QKeySequence::FindPrevious), localized("The previous person who was found")},
      {keys(Qt::Key_Escape), localized("Close the details")},
      {keys(Qt::Key_F10), localized("The menus")},
      {keys(Qt::CTRL | Qt::Key_Plus), localized("Larger text")},
      {keys(Qt::CTRL | Qt::Key_Minus), localized("Smaller text")},
      {keys(Qt::CTRL | Qt::Key_0), localized("Usual text")},
  };
}

}  // namespace

KeyboardHelp::KeyboardHelp(QWidget* parent) : QDialog(parent), table_(new QTextEdit) {
  setObjectName("desk.keyboard");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(localized("Keyboard"));
  table_->setObjectName("desk.keyboard.table");
  table_->setReadOnly(true);
  table_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  table_->setTabChangesFocus(true);
  table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table_->setAccessibleName(localized("Keys of this window"));
  auto* column = new QVBoxLayout(this);
  column->addWidget(table_, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setIcon({});
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addWidget(buttons);
  fit();
}

/// In a table of one column, the meaning stands below its keys.
void KeyboardHelp::fill(Columns columns) {
  const Rows lines = rows();
  const bool isStacked = columns == Columns::one;
  QTextTableFormat format;
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setCellPadding(fontMetrics().height() / 5.0);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  // Qt never mirrors the columns of a table.
  const int ofKeys = !isStacked && isRightToLeft() ? 1 : 0;
  if (!isStacked) {
    QList<QTextLength> widths(2, QTextLength(QTextLength::PercentageLength, 64));
    widths[ofKeys] = QTextLength(QTextLength::PercentageLength, 36);
    format.setColumnWidthConstraints(widths);
  }
  table_->clear();
  QTextCursor cursor(table_->document());
  QTextTable* table = cursor.insertTable(static_cast<int>(lines.size()), isStacked ? 1 : 2, format);
  QTextCharFormat bold;
  bold.setFontWeight(QFont::DemiBold);
  QTextBlockFormat leading;
  leading.setLayoutDirection(layoutDirection());
  for (int i = 0; i < table->rows(); ++i) {
    const auto& [name, meaning] = lines[static_cast<std::size_t>(i)];
    QTextCursor cell = table->cellAt(i, ofKeys).firstCursorPosition();
    cell.setBlockFormat(leading);
    cell.insertText(name, bold);
    if (isStacked) {
      cell.insertBlock(leading);
    } else {
      cell = table->cellAt(i, 1 - ofKeys).firstCursorPosition();
      cell.setBlockFormat(leading);
    }
    cell.insertText(meaning, QTextCharFormat());
  }
  table_->setTextCursor(table->firstCursorPosition());
}

/// As large as the table, and no larger than the screen.
void KeyboardHelp::fit() {
  constexpr int characters = 52;
  constexpr int fewestCharactersOfTwoColumns = 40;
  constexpr QSize frame(16, 40);  // of the window manager
  const int character = fontMetrics().averageCharWidth();
  const QMargins margins = layout()->contentsMargins();
  const int scrollBar = table_->verticalScrollBar()->sizeHint().width();
  const QSize most = screen()->availableSize() - frame;
  const int beside = margins.left() + margins.right() + 2 * table_->frameWidth();
  const int width = std::min(characters * character, most.width() - beside);
  const bool isNarrow = width - scrollBar < fewestCharactersOfTwoColumns * character;
  fill(isNarrow ? Columns::one : Columns::two);
  table_->document()->setTextWidth(width);
  const int rest = 2 * table_->frameWidth() + margins.top() + margins.bottom() +
                   layout()->spacing() + layout()->itemAt(1)->sizeHint().height();
  const int height = static_cast<int>(table_->document()->size().height()) + rest + 4;
  resize(QSize(width + beside, height).boundedTo(most));
}

void KeyboardHelp::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::FontChange && layout() != nullptr) fit();
}

}  // namespace vemra::desk
