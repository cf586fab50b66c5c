// The way of a host's texts from its views to a strings table, with Qt's own tools.

#include "VemraPlatform/ui/EnvironmentOverrides.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/QtStringsTable.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "VemraTesting/Screen.hpp"

#include <memory>
#include <optional>
#include <string>

#include <QFile>
#include <QProcess>
#include <QResource>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vemra;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/// A host's view. `lupdate` reads its texts from this file.
struct FriendList {
  ui::View body() const {
    return ui::VStack(ui::HorizontalAlignment::leading, 4,
                      {//: shown while the list is empty
                       ui::Text(ui::translatable("Contacts", "No friends yet")),
                       ui::Button(vemra::ui::translatable("Contacts",
                                                          "Add “Ada” & the "
                                                          "others…"),
                                  [] {}),
                       ui::Text("Show source")});
  }
};

/// Runs one of Qt's tools. Returns what it prints; fails the test when it fails.
std::string runTool(const char* program, const QStringList& arguments) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(60000)) << program;
  EXPECT_EQ(process.exitCode(), 0) << program;
  return process.readAll().toStdString();
}

/// A file of the folder as a resource of the program, until the object is destroyed.
class Resource {
 public:
  Resource(const QTemporaryDir& folder, const QString& name)
      : data_(folder.filePath(name + ".rcc")) {
    QFile list(folder.filePath(name + ".qrc"));
    EXPECT_TRUE(list.open(QIODevice::WriteOnly));
    list.write(
        ("<RCC><qresource prefix=\"/\"><file>" + name + "</file></qresource></RCC>").toUtf8());
    list.close();
    runTool(VEMRA_RCC, {"-binary", list.fileName(), "-o", data_});
    EXPECT_TRUE(QResource::registerResource(data_));
  }
  ~Resource() { QResource::unregisterResource(data_); }
  Resource(const Resource&) = delete;
  Resource& operator=(const Resource&) = delete;

 private:
  QString data_;
};

class TranslatedView : public ::testing::Test {
 protected:
  /// The messages of this file, as `lupdate` collects them with the arguments in docs/window.md.
  std::string collected() const {
    const QString ts = folder_.filePath("contacts_de.ts");
    runTool(VEMRA_LUPDATE, {"-tr-function-alias", "QT_TRANSLATE_NOOP+=translatable",
                            VEMRA_TEST_DATA "/TranslatedViewTest.cpp", "-ts", ts});
    QFile file(ts);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
  }
  /// Writes a translation into the collected messages, as a translator does.
  static void translate(std::string& messages, const std::string& source, const std::string& text) {
    const std::size_t at = messages.find("<source>" + source + "</source>");
    ASSERT_NE(at, std::string::npos) << messages;
    const std::string open = R"(<translation type="unfinished">)";
    messages.replace(messages.find(open, at), open.size(), "<translation>" + text);
  }
  std::shared_ptr<const qt::QtStringsTable> compiled(const std::string& messages) const {
    QFile file(folder_.filePath("contacts_de.ts"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(messages));
    file.close();
    const QString qm = folder_.filePath("compass_de.qm");
    runTool(VEMRA_LRELEASE, {file.fileName(), "-qm", qm});
    return qt::QtStringsTable::load(qm, "Contacts");
  }

  QTemporaryDir folder_;
};

TEST_F(TranslatedView, LupdateFindsTheMarkedTextsWithTheirComments) {
  const std::string messages = collected();
  EXPECT_THAT(messages, HasSubstr("<name>Contacts</name>"));
  EXPECT_THAT(messages, HasSubstr("<source>No friends yet</source>"));
  EXPECT_THAT(messages, HasSubstr("<source>Add “Ada” &amp; the others…</source>"));
  EXPECT_THAT(messages, HasSubstr("shown while the list is empty"));
  EXPECT_THAT(messages, Not(HasSubstr("Show source"))) << "a text that is not marked";
}

TEST_F(TranslatedView, TheCompiledTableTranslatesTheView) {
  std::string messages = collected();
  translate(messages, "No friends yet", "Noch keine Freunde");
  translate(messages, "Add “Ada” &amp; the others…", "„Ada“ &amp; die anderen hinzufügen …");
  const auto own = compiled(messages);
  ASSERT_NE(own, nullptr);
  ui::Environment environment;
  environment.strings = ui::inOrder(own, qt::QtStringsTable::builtIn({"de"}));
  vemra::testing::Screen screen(FriendList{});
  screen.setEnvironment(environment);
  EXPECT_TRUE(screen.has(vemra::testing::byText("Noch keine Freunde"))) << screen.outline();
  EXPECT_TRUE(screen.has(
      vemra::testing::byTitle(ui::ElementKind::button, "„Ada“ & die anderen hinzufügen …")));
  EXPECT_TRUE(screen.has(vemra::testing::byText("Quelle anzeigen")))
      << "a text of the second table";
}

TEST_F(TranslatedView, ATextWithoutATranslationIsShownUnchanged) {
  const auto own = compiled(collected());
  ASSERT_NE(own, nullptr);
  EXPECT_EQ(own->lookup("No friends yet"), std::nullopt);
}

TEST_F(TranslatedView, MessagesOfAnotherContextAreLeftOut) {
  std::string messages = collected();
  translate(messages, "No friends yet", "Noch keine Freunde");
  const std::string name = "<name>Contacts</name>";
  messages.replace(messages.find(name), name.size(), "<name>Others</name>");
  EXPECT_EQ(compiled(messages)->lookup("No friends yet"), std::nullopt);
}

TEST_F(TranslatedView, AHostTranslatesACopyOfTheScreensTextsIntoAnotherLanguage) {
  QFile original(VEMRA_REPOSITORY "/VemraQt/translations/vemra_de.ts");
  ASSERT_TRUE(original.open(QIODevice::ReadOnly));
  QFile copy(folder_.filePath("screen_fr.ts"));
  ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
  copy.write(original.readAll()
                 .replace("de_DE", "fr_FR")
                 .replace("Quelle anzeigen", "Afficher la source"));
  copy.close();
  runTool(VEMRA_LRELEASE, {copy.fileName(), "-qm", folder_.filePath("screen_fr.qm")});
  const Resource resource(folder_, "screen_fr.qm");
  qt::ViewWidget shown;
  qt::ViewWidget* const widget = &shown;
#include "docs/window_1.inc"
  const ui::Environment& environment = shown.environment();
  EXPECT_EQ(environment.locale, "fr_FR");
  ASSERT_NE(environment.strings, nullptr);
  EXPECT_EQ(environment.strings->lookup("Show source"), "Afficher la source");
}

TEST_F(TranslatedView, AMarkedTextIsTheKeyItself) {
  static_assert(ui::translatable("Contacts", "No friends yet").key() == "No friends yet");
}

}  // namespace

// The lines of docs/window.md, which the build takes from the page.
TEST_F(TranslatedView, TheLinesOfThePageShowATextInGerman) {
  std::string messages = collected();
  translate(messages, "No friends yet", "Noch keine Freunde");
  ASSERT_NE(compiled(messages), nullptr) << "compass_de.qm";
  const Resource resource(folder_, "compass_de.qm");
  qt::ViewWidget shown;
  qt::ViewWidget* const widget = &shown;
#include "docs/window_3.inc"
  const ui::View text =
#include "docs/window_2.inc"
      ;
  vemra::testing::Screen screen(text, shown.environment());
  EXPECT_TRUE(screen.has(vemra::testing::byText("Noch keine Freunde"))) << screen.outline();
}
