#include "tests/apps/OptionsInPages.hpp"
#include "tests/apps/Process.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace vemra::gallery {
namespace {

Ending run(std::vector<std::string> arguments, const char* program = VEMRA_GALLERY) {
  return Process(program, {.arguments = std::move(arguments)}).wait();
}

TEST(GalleryProgramTest, ItsManualPageHasTheOptionsOfItsHelp) {
  const Ending help = run({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_EQ(commandline::sample::optionsIn(help.output),
            commandline::sample::optionsIn(
                commandline::sample::fileText("packaging/man/vemra-gallery.1.in")));
}

TEST(GalleryProgramTest, WritesItsNameAndVersion) {
  const Ending version = run({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.output, "vemra-gallery " + commandline::sample::fileText("VERSION"));
}

TEST(GalleryProgramTest, TheHostInItsPageMakesABookOfItsOwnViews) {
  const TemporaryFolder folder;
  const Ending exported = run({"--export", folder.file("book")}, VEMRA_CONTACTS);
  EXPECT_EQ(exported.exitCode, 0) << exported.diagnostics;
  const std::string page = folder.read("book/index.html");
  for (const char* text : {"<title>Contacts</title>", ">A long name</a>", "Editing Ada",
                           ">The editor</a>", "> Deutsch</label>"}) {
    EXPECT_NE(page.find(text), std::string::npos) << text;
  }
}

TEST(GalleryProgramTest, EndsWithTwoForAWrongCommandLineAndForAFolderThatIsNotEmpty) {
  const Ending unknown = run({"--nothing"});
  EXPECT_EQ(unknown.exitCode, 2);
  EXPECT_NE(unknown.diagnostics.find("nothing"), std::string::npos) << unknown.diagnostics;
  EXPECT_EQ(run({"word"}).exitCode, 2);
  const TemporaryFolder folder;
  folder.write("mine.txt", "mine");
  const Ending refused = run({"--export", folder.path()});
  EXPECT_EQ(refused.exitCode, 2);
  EXPECT_EQ(refused.output, "");
  EXPECT_EQ(
      refused.diagnostics,
      folder.path().string() + ": is not empty; ask for --overwrite to replace the book in it\n");
}

}  // namespace
}  // namespace vemra::gallery
