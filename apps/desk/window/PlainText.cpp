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
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  label->setSizePolicy(policy);
  QFont font = label->font();
  switch (role) {
    case TextRole::title:
      font.setPointSizeF(font.pointSizeF() * 1.25);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::heading:
      font.setPointSizeF(font.pointSizeF() * 0.9);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::strong:
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::body:
    case TextRole::quiet:
      break;
  }
  label->setFont(font);
  if (role == TextRole::quiet || role == TextRole::heading) {
    // The screen's own secondary level, so that both read as one window.
    QPalette palette = label->palette();
    const QColor quiet = qt::Looks(font, palette, {}).text(ui::ForegroundStyle::secondary);
    palette.setColor(QPalette::WindowText, quiet);
    palette.setColor(QPalette::Text, quiet);  // taken on a ground of the page's colour
    label->setPalette(palette);
  }
  return label;
}

QString asButtonTitle(QString text) {
  return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace vemra::desk
