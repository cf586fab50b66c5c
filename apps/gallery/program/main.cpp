#include "VemraGallery/Gallery.hpp"
#include "VemraQt/QtStringsTable.hpp"
#include "apps/gallery/GoalFaces.hpp"
#include "apps/toolkit/ToolkitMessages.hpp"

int main(int argumentCount, char** arguments) {
  using namespace vemra;
  toolkit::leaveOutRemarksAboutTheEnvironment();
  gallery::Gallery gallery("Goal result screen", VEMRA_VERSION);
  gallery.addLanguage(
      {.name = "Deutsch", .locale = "de_DE", .strings = qt::QtStringsTable::builtIn({"de"})});
  gallery::addGoalFaces(gallery);
  return gallery.run(argumentCount, arguments);
}
