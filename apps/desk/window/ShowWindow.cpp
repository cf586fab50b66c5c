#include "apps/desk/window/ShowWindow.hpp"

#include "apps/desk/commands/Commands.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/StoreOpening.hpp"
#include "apps/toolkit/ToolkitMessages.hpp"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include <QApplication>
#include <QLocale>

namespace vemra::desk {
namespace {

/// Without a display, Qt would end the process with its own message.
bool hasDisplay() {
  for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

/// Whether a person can see a window: not on these platforms, which draw into memory.
bool isSeen() {
  const QString platform = QGuiApplication::platformName();
  return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

/// Opens the store of the window. Throws `UnknownGoal` when a store that can be read does not have
/// the requested goal; then nothing was created.
StoreOpening openRequested(const Request& request) {
  std::string file = request.store.value_or("");
  try {
    file = storeFile(request);
    if (request.goal) {
      std::optional<GoalStore> store = existingStore(request);
      if (!store || !store->hasGoal(*request.goal)) {
        throw UnknownGoal(file, *request.goal);
      }
    }
    storeFileToWrite(request);
  } catch (const UnknownGoal&) {
    throw;
  } catch (const StoreError& error) {
    return {file, nullptr, error.what(), false};
  }
  return openStore(file);
}

}  // namespace

int showWindow(const Request& request, std::ostream& diagnostics) {
  if (!hasDisplay()) {
    diagnostics << "vemra-desk: there is no display to show the window on\n";
    return 2;
  }
  std::error_code ignored;
  if (request.recording &&
      std::filesystem::exists(std::filesystem::symlink_status(*request.recording, ignored))) {
    diagnostics << *request.recording << ": is there already; a recording makes a new file\n";
    return 2;
  }
  StoreOpening opening;
  try {
    opening = openRequested(request);
  } catch (const StoreError& error) {
    diagnostics << error.what() << '\n';
    return 2;
  }
  if (!opening.engine) diagnostics << opening.problem << std::endl;
  toolkit::leaveOutRemarksAboutTheEnvironment();
  int argumentCount = 1;
  char name[] = "vemra-desk";
  char* arguments[] = {name, nullptr};
  QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("vemra-desk");
  QApplication::setDesktopFileName("org.vemra.Desk");
  installTranslations(QLocale::system().uiLanguages());

  if (!opening.engine && !isSeen()) return 2;

  std::optional<RecordingWish> recording;
  if (request.recording) recording = {*request.recording, request.masksRecording};
  DeskWindow window(std::move(opening), request.goal, recording);
  window.show();
  const int exitCode = QApplication::exec();
  window.finish();
  return window.engine() ? exitCode : 2;
}

}  // namespace vemra::desk
