#include "VemraGallery/GalleryWindow.hpp"

#include "VemraGallery/Card.hpp"
#include "VemraGallery/Colours.hpp"

#include <algorithm>

#include <QComboBox>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

namespace vemra::gallery {
namespace {

constexpr int gap = 12;  // between cards, in pixels

}  // namespace

GalleryWindow::GalleryWindow(const Gallery& gallery, QWidget* parent)
    : QWidget(parent), gallery_(gallery), palette_(std::make_unique<PaletteSwitch>()) {
  setWindowTitle(QString::fromStdString(gallery.title()));
  auto* const layout = new QVBoxLayout(this);
  switches_ = new QWidget;
  auto* const row = new QHBoxLayout(switches_);
  row->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(switches_);

  search_ = new QLineEdit;
  search_->setObjectName("search");
  search_->setPlaceholderText(tr("Find"));
  search_->setAccessibleName(tr("Find"));
  search_->setClearButtonEnabled(true);
  row->addWidget(search_, 1);
  found_ = new QLabel;
  found_->setObjectName("found");
  row->addWidget(found_);
  QStringList languages;
  for (const Language& each : gallery.languages()) languages << QString::fromStdString(each.name);
  language_ = addSwitch(tr("Language"), "language", languages);
  colours_ = addSwitch(tr("Colours"), "colours", {tr("Light"), tr("Dark"), tr("High contrast")});
  textSize_ = addSwitch(tr("Text"), "textSize", {"100 %", "150 %", "200 %", "300 %"});
  direction_ = addSwitch(tr("Direction"), "direction",
                         {tr("The language's"), tr("Left to right"), tr("Right to left")});
  width_ = addSwitch(tr("Width"), "width", {"320", "480", "720", "1000"});
  connect(search_, &QLineEdit::textChanged, this, &GalleryWindow::find);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_,
          [this] { search_->setFocus(Qt::ShortcutFocusReason); });

  area_ = new QScrollArea;
  area_->setWidget(new QWidget);
  area_->setFrameShape(QFrame::NoFrame);
  // Always visible, so that it never changes how many cards fit into a row.
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  area_->viewport()->installEventFilter(this);
  layout->addWidget(area_, 1);
  addCards(gallery);
  resize(1200, 800);
  restyle();
}

GalleryWindow::~GalleryWindow() = default;

QComboBox* GalleryWindow::addSwitch(const QString& title, const QString& name,
                                    const QStringList& choices) {
  auto* const label = new QLabel(title);
  auto* const choice = new QComboBox;
  choice->setObjectName(name);
  choice->setAccessibleName(title);
  choice->addItems(choices);
  label->setBuddy(choice);
  switches_->layout()->addWidget(label);
  switches_->layout()->addWidget(choice);
  connect(choice, &QComboBox::currentIndexChanged, this, &GalleryWindow::restyle);
  return choice;
}

void GalleryWindow::addCards(const Gallery& gallery) {
  const std::string* section = nullptr;
  for (const Specimen& specimen : gallery.specimens()) {
    if (section == nullptr || *section != specimen.section) {
      section = &specimen.section;
      auto* const heading = new QLabel(QString::fromStdString(specimen.section), area_->widget());
      QFont font = heading->font();
      font.setPointSizeF(QFontInfo(font).pointSizeF() * 1.3);
      heading->setFont(font);
      headings_.push_back(heading);
    }
    cards_.push_back(std::make_unique<Card>(specimen, area_->widget()));
  }
}

void GalleryWindow::restyle() {
  const Colours colours = allColours.at(static_cast<std::size_t>(colours_->currentIndex()));
  palette_->set(colours);
  ui::Environment environment =
      environmentFor(gallery_.languages()[static_cast<std::size_t>(language_->currentIndex())]);
  environment.colorScheme = schemeOf(colours);
  environment.textScale = textSize_->currentText().section(' ', 0, 0).toInt() / 100.0;
  if (direction_->currentIndex() > 0) {
    environment.layoutDirection = direction_->currentIndex() == 1
                                      ? ui::LayoutDirection::leftToRight
                                      : ui::LayoutDirection::rightToLeft;
  }
  for (const auto& card : cards_) card->show(environment, width_->currentText().toInt());
  find();
}

void GalleryWindow::find() {
  std::size_t count = 0;
  for (const auto& card : cards_) {
    const bool isFound = card->contains(search_->text().trimmed());
    card->setVisible(isFound);
    if (isFound) ++count;
  }
  found_->setText(tr("%1 of %2").arg(count).arg(cards_.size()));
  arrange();
}

// Arranges the cards in rows of the window's width, each section below its heading.
void GalleryWindow::arrange() {
  const int room = area_->viewport()->width();
  int x = 0, y = 0, rowHeight = 0, widest = room;
  auto heading = headings_.begin();
  const std::string* section = nullptr;
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    Card& card = *cards_[i];
    if (section == nullptr || *section != card.specimen().section) {
      section = &card.specimen().section;
      QLabel& label = **heading++;
      const bool isShown = std::any_of(
          cards_.begin() + static_cast<std::ptrdiff_t>(i), cards_.end(), [&](const auto& other) {
            return other->specimen().section == *section && !other->isHidden();
          });
      label.setVisible(isShown);
      if (isShown) {
        y += rowHeight + (y > 0 ? gap : 0);
        x = rowHeight = 0;
        label.adjustSize();
        label.move(0, y);
        y += label.height() + gap / 2;
      }
    }
    if (card.isHidden()) continue;
    card.fit();
    if (x > 0 && x + card.width() > room) {
      y += rowHeight + gap;
      x = rowHeight = 0;
    }
    card.move(x, y);
    x += card.width() + gap;
    widest = std::max(widest, card.x() + card.width());
    rowHeight = std::max(rowHeight, card.height());
  }
  area_->widget()->resize(widest, y + rowHeight);
}

void GalleryWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // Its cards are shown after the window.
  QMetaObject::invokeMethod(
      this, [this] { arrange(); }, Qt::QueuedConnection);
}

bool GalleryWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_->viewport() && event->type() == QEvent::Resize) arrange();
  return QWidget::eventFilter(watched, event);
}

}  // namespace vemra::gallery
