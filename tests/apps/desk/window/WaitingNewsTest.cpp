#include "apps/desk/window/WaitingNews.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// The sentences about waiting outcomes that a screen reader reads, without the characters that
/// isolate names.
class WaitingNewsTest : public ::testing::Test {
 protected:
  static WaitingNote note(const std::string& id, const QString& person, const QString& reason = {},
                          const QString& unkept = {}) {
    return {id, "Helped", person, "Sail", reason, unkept, false};
  }
  static std::string plain(QString text) {
    return text.remove(QChar(0x2068)).remove(QChar(0x2069)).toStdString();
  }
  std::string of(const std::vector<WaitingNote>& waiting) { return plain(news.of(waiting)); }
  std::string ofStored(const std::string& id) { return plain(news.ofStored(id)); }

  WaitingNews news;
};

TEST_F(WaitingNewsTest, NothingIsNewsWithoutWaitingOutcomes) {
  EXPECT_EQ(of({}), "");
  EXPECT_EQ(ofStored("a"), "");
}

TEST_F(WaitingNewsTest, AnOutcomeIsNewsOnceAndANewOneBesideItIsNewsAlone) {
  EXPECT_EQ(of({note("a", "Ada")}), "Not stored yet:\n“Helped” for Ada (Sail)");
  EXPECT_EQ(of({note("a", "Ada")}), "");
  EXPECT_EQ(of({note("a", "Ada"), note("b", "Bo")}), "Not stored yet:\n“Helped” for Bo (Sail)");
}

TEST_F(WaitingNewsTest, AReasonOfSeveralOutcomesIsNewsOnceAndBehindTheOutcomes) {
  EXPECT_EQ(of({note("a", "Ada", "is in use"), note("b", "Bo", "is in use", "disk is full")}),
            "Not stored yet:\n“Helped” for Ada (Sail)\n“Helped” for Bo (Sail)\n"
            "is in use\ndisk is full");
  EXPECT_EQ(of({note("a", "Ada", "is in use"), note("b", "Bo", "is in use", "disk is full")}), "");
  EXPECT_EQ(of({note("a", "Ada", "is gone"), note("b", "Bo", "is in use")}), "is gone");
}

TEST_F(WaitingNewsTest, AReasonIsNewsAgainAfterTheUserHasAskedForAnotherTry) {
  of({note("a", "Ada", "is in use")});
  news.expectReasons();
  EXPECT_EQ(of({note("a", "Ada", "is in use")}), "is in use") << "and the outcome is not";
}

TEST_F(WaitingNewsTest, AReasonIsNewsAgainWhenNoOutcomeHasWaitedMeanwhile) {
  of({note("a", "Ada", "is in use")});
  of({});
  EXPECT_EQ(of({note("b", "Bo", "is in use")}),
            "Not stored yet:\n“Helped” for Bo (Sail)\nis in use");
}

TEST_F(WaitingNewsTest, ThatAnOutcomeIsStoredIsNewsOnceAndOnlyIfItsWaitingWas) {
  of({note("a", "Ada")});
  of({});
  EXPECT_EQ(ofStored("b"), "");
  EXPECT_EQ(ofStored("a"), "Stored: “Helped” for Ada (Sail)") << "also some time later";
  EXPECT_EQ(ofStored("a"), "");
}

TEST_F(WaitingNewsTest, EverythingIsNewsAgainInAnotherStore) {
  of({note("a", "Ada", "is in use")});
  news.forget();
  EXPECT_EQ(ofStored("a"), "");
  EXPECT_EQ(of({note("a", "Ada", "is in use")}),
            "Not stored yet:\n“Helped” for Ada (Sail)\nis in use");
}

}  // namespace
}  // namespace vemra::desk
