#include "apps/desk/window/ShowWindow.hpp"

#include "apps/desk/commands/Commands.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/toolkit/ToolkitMessages.hpp"

#include <chrono>
#include <cstdlib>
#include <memory>

#include <QApplication>
#include <QLocale>

namespace vemra::desk {
namespace {

/// How long a call waits for another program. Short: what the window could not store it tries again
/// by itself, and meanwhile the other calls, such as the loading of a goal, have their turn.
constexpr Patience patience = std::chrono::seconds(1);

/// Without a display, Qt would end the process with its own message.
bool hasDisplay() {
  for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

/// Checks that the store can be used, before a window opens; returns its file.
std::string readyStore(const Request& request) {
  if (request.goal) {
    std::optional<GoalStore> store = existingStore(request);
    if (!store || !store->hasGoal(*request.goal)) {
      throw UnknownGoal(storeFile(request), *request.goal);
    }
  }
  std::string file = storeFileToWrite(request);
  GoalStore::open(file);
  return file;
}

}  // namespace

int showWindow(const Request& request, std::ostream& diagnostics) {
  if (!hasDisplay()) {
    diagnostics << "vemra-desk: there is no display to show the window on\n";
    return 2;
  }
  std::string file;
  try {
    file = readyStore(request);
  } catch (const StoreError& error) {
    diagnostics << error.what() << '\n';
    return 2;
  }
  toolkit::leaveOutRemarksAboutTheEnvironment();
  int argumentCount = 1;
  char name[] = "vemra-desk";
  char* arguments[] = {name, nullptr};
  QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("vemra-desk");
  QApplication::setDesktopFileName("org.vemra.Desk");
  installTranslations(QLocale::system().uiLanguages());

  const auto engine = std::make_shared<StoreEngine>(file, patience);
  int exitCode = 0;
  {
    DeskWindow window(engine, request.goal);
    window.show();
    exitCode = QApplication::exec();
  }
  engine->finish();
  return exitCode;
}

}  // namespace vemra::desk
