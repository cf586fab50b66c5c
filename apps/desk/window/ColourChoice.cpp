#include "apps/desk/window/ColourChoice.hpp"

#include "VemraQt/Theme.hpp"
#include "VemraQt/widgets/ControlStyle.hpp"
#include "apps/desk/window/UserSettings.hpp"

#include <array>

#include <QApplication>
#include <QStyle>

namespace vemra::desk {
namespace {

constexpr std::array valuesInSettings{"system", "light", "dark"};  // in the order of `Colours`

/// Another style lays out every window anew, so it is set only when it differs.
void useStyle(const QString& name) {
  if (QApplication::style()->name() != name) QApplication::setStyle(name);
}

}  // namespace

ColourChoice::ColourChoice(QObject* parent)
    : QObject(parent), styleOfSystem_(QApplication::style()->name()) {
  const QString remembered = userSettings().value("colours").toString();
  for (std::size_t i = 0; i < valuesInSettings.size(); ++i) {
    if (remembered == QLatin1String(valuesInSettings[i])) colours_ = static_cast<Colours>(i);
  }
  if (colours_ != Colours::system) apply();
}

void ColourChoice::choose(Colours colours) {
  colours_ = colours;
  userSettings().setValue("colours",
                          QLatin1String(valuesInSettings[static_cast<std::size_t>(colours)]));
  apply();
}

void ColourChoice::apply() {
  QApplication::setPalette(QPalette());  // the system's again
  useStyle(styleOfSystem_);
  if (colours_ == Colours::system) return;
  ui::Environment wanted;
  wanted.colorScheme = colours_ == Colours::dark ? ui::ColorScheme::dark : ui::ColorScheme::light;
  if (!qt::canDrawIn(wanted.colorScheme, *QApplication::style())) useStyle("fusion");
  QPalette palette = qt::Theme({}, QApplication::palette(), wanted).palette();
  // Only a palette of which every colour is set stays when the system's colours change.
  palette.setResolveMask(~QPalette::ResolveMask(0));
  QApplication::setPalette(palette);
}

}  // namespace vemra::desk
