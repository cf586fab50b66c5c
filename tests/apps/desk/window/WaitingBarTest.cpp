#include "apps/desk/window/WaitingBar.hpp"

#include <QLabel>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

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

}  // namespace
}  // namespace vemra::desk
