#include "apps/desk/window/WindowMemory.hpp"

#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/UserSettings.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

namespace vemra::desk::memory {
namespace {

constexpr qsizetype mostStores = 20;

/// One name for a store, whatever path leads to it.
QString nameOf(const std::string& storeFile) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::weakly_canonical(storeFile, error);
  return fromUTF8(error ? storeFile : whole.string());
}

/// The stores and their goals by turns; the store that was used last comes first.
QStringList storesAndGoals() {
  QStringList list = userSettings().value("goals").toStringList();
  if (list.size() % 2 != 0) list.clear();
  return list;
}

/// The part of a window's frame that is not known before the window is shown.
constexpr QSize frame(24, 48);

void fit(QWidget& window) {
  QRect place = window.geometry();
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  const QRect available = (screen != nullptr ? screen : window.screen())->availableGeometry();
  place.setSize(place.size().boundedTo(available.size() - frame));
  place.moveLeft(std::clamp(place.left(), available.left(), available.right() + 1 - place.width()));
  place.moveTop(std::clamp(place.top(), available.top(), available.bottom() + 1 - place.height()));
  window.setGeometry(place);
}

}  // namespace

void restoreWindow(QWidget& window) {
  if (window.restoreGeometry(userSettings().value("window").toByteArray())) {
    if (!window.isMaximized() && !window.isFullScreen()) fit(window);
    return;
  }
  constexpr QSize comfortable(1080, 760);
  window.resize(comfortable.boundedTo(window.screen()->availableSize() - frame));
}

void restorePanes(Panes& panes) {
  const QSettings settings = userSettings();
  panes.setSideWidths(
      {settings.value("goalsWidth").toInt(), settings.value("detailsWidth").toInt()});
  panes.preferGoals(settings.value("goalsInFront").toBool());
}

void remember(const QWidget& window, const Panes& panes) {
  QSettings settings = userSettings();
  settings.setValue("window", window.saveGeometry());
  settings.setValue("goalsWidth", panes.sideWidths().goals);
  settings.setValue("detailsWidth", panes.sideWidths().details);
  settings.setValue("goalsInFront", panes.areGoalsInFront());
}

std::optional<std::string> goalOf(const std::string& storeFile) {
  const QStringList list = storesAndGoals();
  const QString store = nameOf(storeFile);
  for (qsizetype i = 0; i < list.size(); i += 2) {
    if (list[i] == store) return list[i + 1].toStdString();
  }
  return std::nullopt;
}

void rememberGoal(const std::string& storeFile, const std::string& goalID) {
  const QString store = nameOf(storeFile);
  const QStringList before = storesAndGoals();
  QStringList list{store, fromUTF8(goalID)};
  for (qsizetype i = 0; i < before.size() && list.size() < 2 * mostStores; i += 2) {
    if (before[i] != store) list << before[i] << before[i + 1];
  }
  if (list != before) userSettings().setValue("goals", list);
}

}  // namespace vemra::desk::memory
