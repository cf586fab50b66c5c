#include "VemraGallery/Book.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <fstream>
#include <regex>

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <gtest/gtest.h>

namespace vemra::gallery {
namespace {

namespace fs = std::filesystem;

class BookTest : public ::testing::Test {
 protected:
  BookTest() {
    gallery_.add({"Cards", "<Ada>",
                  ui::Button(ui::verbatim("Open"), [] {}).accessibilityIdentifier("card.open"),
                  "One & only"});
    gallery_.add({"Cards", "Bo", ui::Text(ui::verbatim("Bo"))});
    gallery_.addLanguage({.name = "Deutsch", .locale = "de_DE"});
  }

  std::string page() const { return TemporaryFolder::readFile(folder_ / "index.html"); }

  /// The files that the `src` attributes of the page name.
  std::vector<std::string> sources() const {
    const std::string text = page();
    static const std::regex source("src=\"([^\"]*)\"");
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), source), end; at != end; ++at) {
      found.push_back((*at)[1]);
    }
    return found;
  }

  std::string errorOf(const fs::path& folder, Replace replace = Replace::no) const {
    try {
      writeBook(gallery_, folder, replace);
    } catch (const BookError& error) {
      return error.what();
    }
    return "";
  }

  Gallery gallery_{"Tests & more"};
  TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.path() / "book";
};

TEST_F(BookTest, HasAPictureOfEverySpecimenInEveryLanguageInAllColoursAndWidths) {
  writeBook(gallery_, folder_);
  const std::vector<std::string> files = sources();
  ASSERT_EQ(files.size(), 2U * 2 * 3 * 2);
  for (const std::string& file : files) {
    const QImage image(QString::fromStdString((folder_ / file).string()));
    ASSERT_FALSE(image.isNull()) << file;
    EXPECT_EQ(image.width(), file.find("-320.") != std::string::npos ? 320 : 600) << file;
  }
  const auto background = [&](std::size_t number) {
    const QImage image(QString::fromStdString((folder_ / files[number]).string()));
    return qGray(image.pixel(image.width() - 5, image.height() / 2));
  };
  EXPECT_GT(background(0), 200) << "light first";
  EXPECT_LT(background(2), 80) << "then dark";
  EXPECT_GT(background(2), 0) << "but not black";
  EXPECT_EQ(background(4), 0) << "then high contrast";
  EXPECT_GT(background(6), 200) << "and the next language";
}

TEST_F(BookTest, LeavesTheApplicationsPaletteAsItWas) {
  const QPalette before = QApplication::palette();
  writeBook(gallery_, folder_);
  EXPECT_EQ(QApplication::palette(), before);
}

TEST_F(BookTest, WritesTextsAsTextsAndNotAsHTML) {
  writeBook(gallery_, folder_);
  const std::string text = page();
  EXPECT_NE(text.find("<title>Tests &amp; more</title>"), std::string::npos);
  EXPECT_NE(text.find(">&lt;Ada&gt;</a>"), std::string::npos);
  EXPECT_NE(text.find("<p>One &amp; only</p>"), std::string::npos);
  EXPECT_EQ(text.find("<Ada>"), std::string::npos);
}

TEST_F(BookTest, ContainsIdentifiersOutlineAndTheTextsOfAssistiveTechnology) {
  writeBook(gallery_, folder_);
  const std::string text = page();
  EXPECT_NE(text.find("<pre tabindex=\"0\">card.open\n"), std::string::npos);
  EXPECT_NE(text.find("Button &quot;Open&quot; .accessibilityIdentifier"), std::string::npos);
  EXPECT_NE(text.find("button &quot;Open&quot;\n"), std::string::npos);
}

TEST_F(BookTest, ContainsItsStyleAndItsScriptAndNeedsNoNetwork) {
  writeBook(gallery_, folder_);
  EXPECT_NE(page().find("color-scheme: light"), std::string::npos);
  EXPECT_NE(page().find("addEventListener"), std::string::npos);
  EXPECT_EQ(page().find("http"), std::string::npos);
}

TEST_F(BookTest, RefusesAFolderThatIsNotEmpty) {
  fs::create_directory(folder_);
  std::ofstream(folder_ / "mine.txt") << "mine";
  EXPECT_EQ(errorOf(folder_), folder_.string() +
                                  ": is not empty; ask for --overwrite to replace the "
                                  "book in it");
  EXPECT_FALSE(fs::exists(folder_ / "index.html"));
  EXPECT_EQ(TemporaryFolder::readFile(folder_ / "mine.txt"), "mine");
}

TEST_F(BookTest, ReplacesOnlyAnOlderBookOnRequest) {
  fs::create_directories(folder_ / "pictures");
  std::ofstream(folder_ / "pictures/old.png") << "old";
  std::ofstream(folder_ / "index.html") << "old";
  std::ofstream(folder_ / "mine.txt") << "mine";
  writeBook(gallery_, folder_, Replace::yes);
  EXPECT_FALSE(fs::exists(folder_ / "pictures/old.png"));
  EXPECT_EQ(page().rfind("<!DOCTYPE html>", 0), 0U);
  EXPECT_EQ(TemporaryFolder::readFile(folder_ / "mine.txt"), "mine");
}

TEST_F(BookTest, NamesAFileThatCannotBeWrittenAndLeavesNothingBehind) {
  std::ofstream(folder_) << "a file";
  EXPECT_EQ(errorOf(folder_), folder_.string() + ": is not a folder");
  const fs::path nowhere = "/proc/no/book";
  EXPECT_EQ(errorOf(nowhere), nowhere.string() + ": cannot be written");
  gallery_.add({.section = "Cards",
                .name = "Broken",
                .view = ui::Text(ui::verbatim("x")),
                .prepare = [](testing::Screen&) { throw std::runtime_error("broken"); }});
  EXPECT_THROW(writeBook(gallery_, temporary_.path() / "other"), std::runtime_error);
  EXPECT_EQ(std::distance(fs::directory_iterator(temporary_.path()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace vemra::gallery
