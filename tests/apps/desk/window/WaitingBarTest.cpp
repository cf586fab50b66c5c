#include "apps/desk/window/WaitingBar.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

WaitingNote note(const QString& person, const QString& reason, const QString& unkept = {}) {
  return {"id", "Helped", person, "Sail", reason, unkept};
}

QString textOf(const std::vector<WaitingNote>& waiting) {
  WaitingBar bar;
  bar.setWaiting(waiting);
  return bar.findChild<QLabel*>()->text().remove(QChar(0x2068)).remove(QChar(0x2069));
}

TEST(WaitingBarTest, AReasonOfAllOutcomesStandsOnceAtTheEnd) {
  EXPECT_EQ(textOf({note("Ada", "s: is locked"), note("Bob", "s: is locked")}),
            "Not stored yet (2):\n“Helped” for Ada (Sail)\n“Helped” for Bob (Sail)\ns: is locked");
}

TEST(WaitingBarTest, DifferentReasonsStandBesideTheirOutcomes) {
  EXPECT_EQ(textOf({note("Ada", ""), note("Bob", "s: is locked")}),
            "Not stored yet (2):\n“Helped” for Ada (Sail)\n“Helped” for Bob (Sail): s: is locked");
}

TEST(WaitingBarTest, AnOutcomeThatWouldBeLostIsNamedAlsoBehindMany) {
  std::vector<WaitingNote> waiting(4, note("Ada", "s: is locked"));
  waiting.push_back(note("Zoe", "s: is locked", "The journal is not there."));
  EXPECT_EQ(textOf(waiting),
            "Not stored yet (5):\n“Helped” for Ada (Sail)\n“Helped” for Ada (Sail)\n“Helped” for "
            "Ada (Sail)\nand 2 more\ns: is locked\nIt would be lost if the program ended now: "
            "“Helped” for Zoe (Sail). The journal is not there.");
}

TEST(WaitingBarTest, ItsNumbersHaveTheDigitsOfTheUsersLocale) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
  const QString text = textOf(std::vector<WaitingNote>(5, note("Ada", "")));
  QLocale::setDefault(before);
  EXPECT_TRUE(text.startsWith(QStringLiteral("Not stored yet (٥):"))) << text.toStdString();
  EXPECT_TRUE(text.endsWith(QStringLiteral("and ٢ more"))) << text.toStdString();
}

WaitingNote noteOf(const std::string& id, const QString& person, const QString& reason) {
  WaitingNote one = note(person, reason);
  one.id = id;
  return one;
}

TEST(WaitingBarTest, AVisibleBarAnnouncesNewOutcomesAndNewReasonsOnly) {
  QWidget window;
  WaitingBar bar(&window);
  window.show();
  HeardAlerts alerts;
  bar.setWaiting({noteOf("1", "Ada", "")});
  EXPECT_THAT(alerts.take(), ElementsAre("Not stored yet:\n“Helped” for Ada (Sail)"));
  bar.setWaiting({noteOf("1", "Ada", "s: is locked")});
  EXPECT_THAT(alerts.take(), ElementsAre("s: is locked"));
  bar.setWaiting({noteOf("1", "Ada", "s: is locked"), noteOf("2", "Bob", "s: is locked")});
  EXPECT_THAT(alerts.take(), ElementsAre("Not stored yet:\n“Helped” for Bob (Sail)"));
  bar.setWaiting({noteOf("2", "Bob", "s: is locked")});
  bar.setWaiting({noteOf("2", "Bob", "s: is full")});
  bar.setWaiting({noteOf("2", "Bob", "s: is locked")});
  EXPECT_THAT(alerts.take(), ElementsAre("s: is full"));
}

TEST(WaitingBarTest, TryingAgainAnnouncesItsFailureAgain) {
  QWidget window;
  WaitingBar bar(&window);
  window.show();
  bar.setWaiting({noteOf("1", "Ada", "s: is locked")});
  HeardAlerts alerts;
  bar.findChild<QPushButton*>("desk.waiting.again")->click();
  bar.setWaiting({noteOf("1", "Ada", "s: is locked")});
  EXPECT_THAT(alerts.take(), ElementsAre("s: is locked"));
}

TEST(WaitingBarTest, TheStoringOfAnOutcomeIsNewsIfItWasShownAsWaiting) {
  WaitingBar bar;
  bar.setWaiting({noteOf("1", "Ada", "")});
  EXPECT_EQ(bar.newsOfStored("2"), "");
  EXPECT_EQ(bar.newsOfStored("1").remove(QChar(0x2068)).remove(QChar(0x2069)),
            "Stored: “Helped” for Ada (Sail)");
  EXPECT_EQ(bar.newsOfStored("1"), "") << "once";
}

TEST(WaitingBarTest, AnotherStoreBeginsWithoutTheNewsOfTheOneBefore) {
  WaitingBar bar;
  bar.setWaiting({noteOf("1", "Ada", "s: is locked")});
  bar.forget();
  EXPECT_TRUE(bar.isHidden());
  EXPECT_EQ(bar.newsOfStored("1"), "") << "an outcome of the other store";
}

}  // namespace
}  // namespace vemra::desk
