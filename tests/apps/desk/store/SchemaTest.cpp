#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <sys/stat.h>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string errorOfOpening(const std::string& file) {
  const std::string writing = errorOf([&] { GoalStore::open(file); });
  const std::string reading = errorOf([&] { GoalStore::openExisting(file); });
  EXPECT_EQ(writing, reading);
  return writing;
}

using Schema = StoreFile;

TEST_F(Schema, AStoreHasItsMarksAndUsesAWriteAheadLog) {
  GoalStore store = GoalStore::open(file);
  EXPECT_THAT(folder.read("goals.sqlite"), StartsWith("SQLite format 3"));
  RawDatabase raw(file);
  EXPECT_EQ(raw.value("PRAGMA user_version"), "2");
  EXPECT_EQ(raw.value("PRAGMA application_id"), std::to_string(0x566D446B));
  EXPECT_EQ(raw.value("PRAGMA journal_mode"), "wal");
  EXPECT_EQ(raw.value("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(raw.value("SELECT count(*) FROM pragma_table_list "
                      "WHERE type = 'table' AND name NOT LIKE 'sqlite_%' AND NOT strict"),
            "0");
}

TEST_F(Schema, AReasonHasAllColumnsOfItsKindAndNoOthers) {
  GoalStore::open(file).import({goal("g", "t")});
  RawDatabase raw(file);
  // One bit for each column: label, detail, reference, hop count, thread count, meeting count.
  constexpr unsigned none = 0, noneWillDo = 64;
  const std::pair<const char*, unsigned> kinds[] = {
      {"evidence", 0b000'111},       {"connection", 0b001'000}, {"nameMatch", none},
      {"sharedActivity", 0b110'000}, {"generic", none},         {"rumour", noneWillDo}};
  for (const std::string row : {"people VALUES (1, 7, 'p', NULL, ", "paths VALUES (1, 7, 0, "}) {
    for (const auto& [kind, wanted] : kinds) {
      for (unsigned given = 0; given < 64; ++given) {
        std::string insertion = "INSERT INTO " + row + "'" + kind + "'";
        for (unsigned i = 0; i < 6; ++i) insertion += (given >> i & 1) != 0 ? ", 1" : ", NULL";
        const std::string error = raw.run("BEGIN; " + insertion + ")");
        EXPECT_EQ(error.empty(), given == wanted) << insertion << ": " << error;
        raw.run("ROLLBACK");
      }
    }
  }
}

TEST_F(Schema, OnlyItsOwnerMayReadANewFile) {
  GoalStore store = GoalStore::open(file);
  store.import({goal("g", "t")});
  for (const char* suffix : {"", "-wal", "-shm"}) {
    struct stat status {};
    ASSERT_EQ(::stat((file + suffix).c_str(), &status), 0) << suffix;
    EXPECT_EQ(status.st_mode & 0777, 0600u) << suffix;
  }
}

TEST_F(Schema, AnEmptyFileIsANewStore) {
  folder.write("goals.sqlite", "");
  EXPECT_FALSE(GoalStore::openExisting(file));
  EXPECT_EQ(folder.read("goals.sqlite"), "") << "reading must not write";
  GoalStore::open(file).import({goal("g", "t")});
  EXPECT_EQ(GoalStore::openExisting(file)->goals().size(), 1u);
}

TEST_F(Schema, ReadingAMissingStoreMakesNoFile) {
  EXPECT_FALSE(GoalStore::openExisting(folder.file("new")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("new")));
}

TEST_F(Schema, ANewerVersionIsRefusedUntouched) {
  GoalStore::open(file).import({goal("g", "t")});
  RawDatabase(file).run("PRAGMA user_version = 3");
  const std::string before = folder.read("goals.sqlite");
  EXPECT_EQ(errorOfOpening(file), file +
                                      ": was written by a newer vemra-desk: its version is 3, "
                                      "this one knows 2");
  EXPECT_EQ(folder.read("goals.sqlite"), before);
}

TEST_F(Schema, AnotherProgramsDatabaseIsRefusedUntouched) {
  RawDatabase(file).run("CREATE TABLE recipes (name)");
  const std::string before = folder.read("goals.sqlite");
  EXPECT_EQ(errorOfOpening(file), file + ": is an SQLite database, but not a store of goals");
  EXPECT_EQ(folder.read("goals.sqlite"), before);

  for (const char* mark : {"PRAGMA user_version = 1", "PRAGMA application_id = 77"}) {
    const std::string half = folder.file("half.sqlite");
    RawDatabase(half).run(mark);
    EXPECT_EQ(errorOfOpening(half), half + ": is an SQLite database, but not a store of goals");
    std::filesystem::remove(half);
  }
  const std::string early = folder.file("early.sqlite");
  RawDatabase(early).run("PRAGMA application_id = " + std::to_string(0x566D446B));
  EXPECT_EQ(errorOfOpening(early), early + ": is damaged: it has no version");

  const std::string marked = folder.file("marked.sqlite");
  RawDatabase(marked).run("PRAGMA application_id = 77; PRAGMA user_version = 1");
  EXPECT_EQ(errorOfOpening(marked), marked + ": is an SQLite database, but not a store of goals");
}

TEST_F(Schema, AFileThatIsNoDatabaseIsRefusedUntouched) {
  for (const std::string& bytes : {std::string("hello"), std::string(100'000, 'x'),
                                   std::string("SQLite format 3\0", 16), std::string(4096, '\0')}) {
    folder.write("goals.sqlite", bytes);
    EXPECT_EQ(errorOfOpening(file), file + ": is not an SQLite database");
    EXPECT_EQ(folder.read("goals.sqlite"), bytes);
  }
}

// A header takes 100 bytes. SQLite itself reads a file of one byte as an empty database.
TEST_F(Schema, AFileTooShortForAHeaderIsRefusedUntouchedUnlessItIsEmpty) {
  GoalStore::open(file);
  const std::string whole = folder.read("goals.sqlite");
  ASSERT_GE(whole.size(), 100u);
  for (std::size_t size = 1; size < 100; ++size) {
    for (const std::string& bytes :
         {std::string(size, 'x'), std::string(size, '\0'), whole.substr(0, size)}) {
      const std::string cut = folder.write("short", bytes);
      ASSERT_EQ(errorOfOpening(cut), cut + ": is not an SQLite database") << size;
      ASSERT_EQ(folder.read("short"), bytes) << size;
    }
  }
}

TEST_F(Schema, ADamagedStoreIsAnErrorAndNotACrash) {
  auto big = goal("g", "t");
  std::vector<GoalPersonCandidateDTO> people(2000, big.people[0]);
  big.people = people;
  GoalStore::open(file).import({big});
  std::string bytes = folder.read("goals.sqlite");
  ASSERT_GT(bytes.size(), 40u * 4096u);
  for (std::size_t i = 3 * 4096; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7919);
  folder.write("goals.sqlite", bytes);
  EXPECT_THAT(errorOf([&] { GoalStore::open(file).result("g"); }), StartsWith(file + ": "));
}

TEST_F(Schema, PlacesThatCannotHoldAStoreAreRefused) {
  const std::string missing = folder.file("no/such/folder/goals.sqlite");
  EXPECT_THAT(errorOf([&] { GoalStore::open(missing); }),
              ::testing::AllOf(StartsWith(missing + ": "), HasSubstr("No such file or directory")));
  EXPECT_THAT(errorOf([&] { GoalStore::openExisting(missing); }),
              ::testing::AllOf(StartsWith(missing + ": "), HasSubstr("No such file or directory")));
  EXPECT_EQ(errorOfOpening(folder.path().string()),
            folder.path().string() + ": cannot be opened: not a file");
  const std::string pipe = folder.file("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(errorOfOpening(pipe), pipe + ": cannot be opened: not a file");
  EXPECT_EQ(errorOfOpening(""), "\"\": is not the name of a file");
}

// SQLite has a meaning of its own for these; to a user they are files.
TEST_F(Schema, SpecialNamesAreFiles) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  for (const char* name : {":memory:", "file:x?mode=memory", "with space ' \" é"}) {
    GoalStore::open(name).import({goal("g", name)});
    EXPECT_TRUE(std::filesystem::exists(folder.path() / name)) << name;
    EXPECT_EQ(GoalStore::open(name).goals()[0].title, name);
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace vemra::desk
