#include "VemraGallery/Card.hpp"

#include "VemraQt/ViewWidget.hpp"

#include <algorithm>

#include <QLabel>
#include <QVBoxLayout>

namespace vemra::gallery {
namespace {

constexpr int lowest = 40, highest = 520;  // of a view without a height of its own, in pixels
constexpr std::size_t textsLookedThrough = 2000;

QLabel* label(const std::string& text) {
  auto* const label = new QLabel(QString::fromStdString(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

Card::Card(const Specimen& specimen, QWidget* parent) : QFrame(parent), specimen_(specimen) {
  setFrameShape(StyledPanel);
  setAccessibleName(QString::fromStdString(specimen.name));
  auto* const layout = new QVBoxLayout(this);
  QLabel* const name = label(specimen.name);
  QFont font = name->font();
  font.setBold(true);
  name->setFont(font);
  layout->addWidget(name);
  if (!specimen.description.empty()) layout->addWidget(label(specimen.description));
}

Card::~Card() {
  delete view_;  // before the graph that it shows
}

void Card::mountAnew(const ui::Environment& environment) {
  delete view_;
  screen_ = mount(specimen_, environment);
  std::string searched = specimen_.section + '\n' + specimen_.name + '\n' + specimen_.description;
  std::vector<std::string> texts = screen_->shownTexts();
  const std::vector<std::string> identifiers = screen_->identifiers();
  texts.insert(texts.end(), identifiers.begin(), identifiers.end());
  texts.resize(std::min(texts.size(), textsLookedThrough));
  for (const std::string& text : texts) searched += '\n' + text;
  searched_ = QString::fromStdString(searched);
  view_ = new qt::ViewWidget(screen_->graph());
  view_->setAccessibleName(accessibleName());
  static_cast<QVBoxLayout*>(layout())->addWidget(view_);
}

void Card::show(const ui::Environment& environment, int width) {
  const bool isOtherLanguage = view_ == nullptr ||
                               screen_->graph().environment().locale != environment.locale ||
                               screen_->graph().environment().strings != environment.strings;
  if (isOtherLanguage) {
    mountAnew(environment);
  } else {
    screen_->setEnvironment(environment);
  }
  view_->setFixedSize(width, specimen_.height > 0 ? specimen_.height : highest);
  const QMargins around = layout()->contentsMargins();
  setFixedWidth(width + around.left() + around.right() + 2 * frameWidth());
  QFrame::show();
  fit();
}

void Card::fit() {
  // A view may get longer as its rows are measured.
  for (int round = 0; round < 3 && specimen_.height == 0; ++round) {
    const int frames = view_->height() - view_->viewport()->height();
    view_->setFixedHeight(std::clamp(view_->contentHeight() + frames, lowest, highest));
  }
  setFixedHeight(heightForWidth(width()));
}

bool Card::contains(const QString& text) const {
  return searched_.contains(text, Qt::CaseInsensitive);
}

}  // namespace vemra::gallery
