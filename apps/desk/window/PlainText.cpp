#include "apps/desk/window/PlainText.hpp"

#include "VemraQt/Looks.hpp"

#include <QFont>
#include <QPalette>

namespace vemra::desk {

QLabel* makeLabel(const QString& text, TextRole role) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  QFont font = label->font();
  switch (role) {
    case TextRole::title:
      font.setPointSizeF(font.pointSizeF() * 1.25);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::heading:
    case TextRole::strong:
      font.setWeight(role == TextRole::heading ? QFont::DemiBold : QFont::Medium);
      break;
    case TextRole::body:
    case TextRole::quiet:
      break;
  }
  label->setFont(font);
  if (role == TextRole::quiet) {
    // The screen's own secondary level, so that both read as one window.
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText,
                     qt::Looks(font, palette, {}).text(ui::ForegroundStyle::secondary));
    label->setPalette(palette);
  }
  return label;
}

QString asButtonTitle(QString text) {
  return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace vemra::desk
