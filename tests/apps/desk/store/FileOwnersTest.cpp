#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AsNobody.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <filesystem>
#include <functional>
#include <unistd.h>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {
namespace fs = std::filesystem;

using ::testing::HasSubstr;

constexpr uid_t stranger = 4711;

/// Has the rights of root while it lives, inside of `AsNobody`.
void asRoot(const std::function<void()>& act) {
  ASSERT_EQ(::seteuid(0), 0);
  act();
  ASSERT_EQ(::seteuid(AsNobody::id), 0);
}

/// Files of several users: needs the rights of root.
class FileOwnersTest : public StoreFile {
 protected:
  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give files to other users";
    GoalStore::open(file).import({goal("g1", "One")});
    give("", AsNobody::id);
    ASSERT_EQ(::chown(folder.path().c_str(), AsNobody::id, AsNobody::id), 0);
  }

  void give(const std::string& suffix, uid_t owner) const {
    ASSERT_EQ(::chown((file + suffix).c_str(), owner, owner), 0) << suffix;
  }

  /// Puts a file beside the store.
  void plant(const std::string& suffix, uid_t owner) const {
    folder.write("goals.sqlite" + suffix, "planted");
    give(suffix, owner);
  }

  std::string errorOfReading() const {
    const AsNobody rights;
    return errorOf([&] { GoalStore::openExisting(file).value().goals(); });
  }
  std::string errorOfWriting() const {
    const AsNobody rights;
    return errorOf([&] { GoalStore::open(file).import({goal("g1", "One")}); });
  }

  const std::string theirs = file + ": belongs to another user (user id 4711), and ";
};

TEST_F(FileOwnersTest, TheUsersOwnStoreIsUsedAlsoWhenOthersMayWriteIt) {
  for (const unsigned mode : {0600, 0644, 0666}) {
    fs::permissions(file, fs::perms(mode));
    EXPECT_EQ(errorOfReading(), "no error") << mode;
    EXPECT_EQ(errorOfWriting(), "no error") << mode;
  }
}

TEST_F(FileOwnersTest, AFileThatAnotherUserPutBesideTheStoreIsRefused) {
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    plant(suffix, stranger);
    const std::string refusal = file + ": cannot be used with the file " + file + suffix +
                                " beside it, which belongs to another user (user id 4711); find "
                                "out who put it there, and remove it";
    const std::string before = folder.read("goals.sqlite");
    EXPECT_EQ(errorOfReading(), refusal);
    EXPECT_EQ(errorOfWriting(), refusal);
    EXPECT_EQ(folder.read("goals.sqlite"), before);
    EXPECT_EQ(TemporaryFolder::readFile(file + suffix), "planted");
    fs::remove(file + suffix);
  }
  EXPECT_EQ(errorOfReading(), "no error");
}

TEST_F(FileOwnersTest, AnEmptyFileOfAnotherUserIsRefusedToo) {
  plant("-wal", stranger);
  fs::resize_file(file + "-wal", 0);
  EXPECT_THAT(errorOfReading(), HasSubstr("-wal beside it, which belongs to another user"));
}

// A journal for an empty store empties the store when SQLite rolls it back.
TEST_F(FileOwnersTest, AJournalOfAnotherUserDoesNotEmptyTheStore) {
  fs::permissions(folder.path(), fs::perms(0777));
  std::string journal("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
  journal += std::string(
      "\0\0\0\0"
      "\x12\x34\x56\x78"
      "\0\0\0\0"
      "\0\0\x02\0"
      "\0\0\x10\0",
      20);
  journal.resize(512, '\0');
  folder.write("goals.sqlite-journal", journal);
  give("-journal", stranger);
  fs::permissions(file + "-journal", fs::perms(0666));
  const auto size = fs::file_size(file);
  EXPECT_THAT(errorOfReading(), HasSubstr("-journal beside it, which belongs to another user"));
  EXPECT_EQ(fs::file_size(file), size);
}

TEST_F(FileOwnersTest, ALinkOrAFolderBesideTheStoreIsRefused) {
  const std::string elsewhere = folder.write("elsewhere", "mine");
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    fs::create_symlink(elsewhere, file + suffix);
    EXPECT_THAT(errorOfReading(),
                HasSubstr(suffix + std::string(" beside it, which is a symbolic")));
    EXPECT_THAT(errorOfWriting(),
                HasSubstr(suffix + std::string(" beside it, which is a symbolic")));
    fs::remove(file + suffix);
    fs::create_directory(file + suffix);
    EXPECT_THAT(errorOfWriting(),
                HasSubstr(suffix + std::string(" beside it, which is not a reg")));
    fs::remove(file + suffix);
  }
}

TEST_F(FileOwnersTest, TheFilesOfRootAndOfTheOwnerAreTrusted) {
  const GoalStore open = GoalStore::open(file);
  give("-wal", 0);
  give("-shm", 0);
  for (const char* suffix : {"-wal", "-shm"}) fs::permissions(file + suffix, fs::perms(0666));
  EXPECT_EQ(errorOfReading(), "no error");
  give("-wal", AsNobody::id);
  give("-shm", AsNobody::id);
  EXPECT_EQ(errorOfReading(), "no error");
}

TEST_F(FileOwnersTest, AStoreOfAnotherUserIsReadWhileItsOwnerHasItOpen) {
  give("", stranger);
  fs::permissions(file, fs::perms(0644));
  const GoalStore open = GoalStore::open(file);
  GoalStore::open(file).import({goal("g1", "Changed")});
  for (const char* suffix : {"-wal", "-shm"}) {
    give(suffix, stranger);
    fs::permissions(file + suffix, fs::perms(0644));
  }
  EXPECT_EQ(errorOfReading(), "no error");
  EXPECT_EQ(errorOfWriting(), file + ": is read-only");
}

TEST_F(FileOwnersTest, AStoreOfAnotherUserIsReadWithoutAFileMadeBesideIt) {
  give("", stranger);
  ASSERT_EQ(::chown(folder.path().c_str(), stranger, AsNobody::id), 0);
  fs::permissions(folder.path(), fs::perms(0775));
  fs::permissions(file, fs::perms(0664));
  give("", stranger);
  ASSERT_EQ(::chown(file.c_str(), stranger, AsNobody::id), 0);
  const AsNobody rights;
  auto store = GoalStore::openExisting(file);
  EXPECT_EQ(store->goals().size(), 1u);
  EXPECT_FALSE(fs::exists(file + "-wal"));
  EXPECT_FALSE(fs::exists(file + "-shm"));
}

TEST_F(FileOwnersTest, AStoreOfAnotherUserThatAGroupMayWriteIsNotWritten) {
  give("", stranger);
  fs::permissions(file, fs::perms(0664));
  EXPECT_EQ(errorOfReading(), "no error");
  EXPECT_EQ(errorOfWriting(), theirs +
                                  "a whole group may write it; it can be read, and for recording "
                                  "use a store of your own");
}

TEST_F(FileOwnersTest, AStoreOfAnotherUserThatEverybodyMayWriteIsRefused) {
  give("", stranger);
  const std::string refusal = theirs +
                              "everybody may write it or its folder, so its content may be "
                              "anybody's; use a copy in a folder of your own";
  fs::permissions(file, fs::perms(0646));
  EXPECT_EQ(errorOfReading(), refusal);
  EXPECT_EQ(errorOfWriting(), refusal);
  fs::permissions(file, fs::perms(0644));
  EXPECT_EQ(errorOfReading(), "no error");
  fs::permissions(folder.path(), fs::perms(01777));
  EXPECT_EQ(errorOfReading(), refusal);
  EXPECT_EQ(errorOfWriting(), refusal);
}

TEST_F(FileOwnersTest, ALogOfTheWrongOwnerBesideAStoreOfAnotherUserIsRefused) {
  give("", stranger);
  fs::permissions(file, fs::perms(0644));
  plant("-wal", stranger + 1);
  EXPECT_THAT(errorOfReading(), HasSubstr("belongs to another user (user id 4712)"));
}

// SQLite rolls a journal back into the database at the beginning of a transaction.
TEST_F(FileOwnersTest, AJournalAddedAfterTheOpeningIsRefused) {
  const auto withOpenDatabase = [&](const std::function<void(Database&)>& act) {
    const AsNobody rights;
    return errorOf([&] {
      Database database(file, Database::Opening::existingToWrite, Patience(300));
      act(database);
    });
  };
  for (const Transaction::Kind kind : {Transaction::Kind::reading, Transaction::Kind::writing}) {
    EXPECT_THAT(withOpenDatabase([&](Database& database) {
                  asRoot([&] { plant("-journal", stranger); });
                  const Transaction transaction(database, kind);
                }),
                HasSubstr("belongs to another user (user id 4711)"));
    fs::remove(file + "-journal");
  }
  EXPECT_EQ(withOpenDatabase([&](Database& database) {
              database.accept();
              asRoot([&] { plant("-journal", stranger); });
              const Transaction transaction(database, Transaction::Kind::reading);
            }),
            "no error")
      << "with its log open, SQLite does not look at a journal";
}

TEST_F(FileOwnersTest, ALogAddedDuringTheFirstImportIsReported) {
  fs::remove(file);
  const AtCommit planting([&] {
    asRoot([&] { plant("-wal", stranger); });
    return 0;
  });
  const AsNobody rights;
  EXPECT_THAT(errorOf([&] { GoalStore::importInto(file, {goal("g1", "One")}); }),
              HasSubstr("belongs to another user (user id 4711)"));
}

TEST_F(FileOwnersTest, RootReadsAndWritesTheStoreOfAUser) {
  give("", stranger);
  fs::permissions(file, fs::perms(0600));
  EXPECT_EQ(errorOf([&] { GoalStore::openExisting(file)->goals(); }), "no error");
  EXPECT_EQ(errorOf([&] { GoalStore::open(file).import({goal("g1", "One")}); }), "no error");
}

TEST_F(FileOwnersTest, RootSeesConcurrentWritesToTheStoreOfAUser) {
  give("", stranger);
  GoalStore read = GoalStore::openExisting(file).value();
  EXPECT_EQ(read.goals().size(), 1u);
  GoalStore::open(file).import({goal("g2", "Two")});
  EXPECT_EQ(read.goals().size(), 2u);
}

}  // namespace
}  // namespace vemra::desk
