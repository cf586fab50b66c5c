#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AsNobody.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"

#include <map>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;

constexpr auto readable = fs::perms(0444);
constexpr auto enterable = fs::perms(0555);

class ReadOnlyStoreTest : public ::testing::Test {
 protected:
  ReadOnlyStoreTest() { GoalStore::open(file).import({goal("g1", "One")}); }
  ~ReadOnlyStoreTest() override { fs::permissions(folder.path(), fs::perms(0755)); }

  /// The files of the folder, each with a value that changes with its content.
  std::map<std::string, std::size_t> everything() const {
    std::map<std::string, std::size_t> files;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      const std::string content = TemporaryFolder::readFile(entry.path().string());
      files[entry.path().filename()] = std::hash<std::string>()(content);
    }
    return files;
  }

  void expectReadable() const {
    const auto before = everything();
    {
      const AsNobody rights;
      auto store = GoalStore::openExisting(file);
      ASSERT_TRUE(store);
      EXPECT_EQ(store->goals(), (std::vector<GoalListing>{{"g1", "One"}}));
      EXPECT_EQ(store->result("g1").people.size(), 1u);
      EXPECT_TRUE(store->outcomes("g1").empty());
    }
    EXPECT_EQ(everything(), before) << "reading must not leave anything behind";
  }

  std::string errorOfWriting() const {
    const auto before = everything();
    std::string said = "no error";
    try {
      const AsNobody rights;
      GoalStore::open(file).import({goal("g2", "Two")});
    } catch (const StoreError& error) {
      said = error.what();
    }
    EXPECT_EQ(everything(), before);
    return said;
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals ?%é#.sqlite");
};

TEST_F(ReadOnlyStoreTest, AFileThatMayNotBeWritten) {
  fs::permissions(file, readable);
  fs::permissions(folder.path(), fs::perms(0777));
  expectReadable();
  EXPECT_EQ(errorOfWriting(), file + ": is read-only");
}

TEST_F(ReadOnlyStoreTest, AFolderThatMayNotBeWritten) {
  fs::permissions(file, fs::perms(0666));
  fs::permissions(folder.path(), enterable);
  expectReadable();
  EXPECT_EQ(errorOfWriting(), file + ": cannot be changed: its folder is read-only");
}

TEST_F(ReadOnlyStoreTest, NeitherFileNorFolderMayBeWritten) {
  fs::permissions(file, readable);
  fs::permissions(folder.path(), enterable);
  expectReadable();
  EXPECT_EQ(errorOfWriting(), file + ": is read-only");
}

TEST_F(ReadOnlyStoreTest, ALinkToAStoreInAFolderThatMayNotBeWritten) {
  const TemporaryFolder elsewhere;
  fs::permissions(elsewhere.path(), fs::perms(0777));
  fs::permissions(file, fs::perms(0666));
  fs::permissions(folder.path(), enterable);
  fs::create_symlink(file, elsewhere.path() / "link");
  const AsNobody rights;
  EXPECT_EQ(GoalStore::openExisting(elsewhere.file("link"))->goals().size(), 1u);
}

TEST_F(ReadOnlyStoreTest, WritesOfAnOpenWindowAreSeen) {
  GoalStore open = GoalStore::open(file);
  open.import({goal("g1", "Changed")});
  for (const auto& entry : fs::directory_iterator(folder.path())) {
    fs::permissions(entry.path(), readable);
  }
  fs::permissions(folder.path(), enterable);
  const AsNobody rights;
  EXPECT_EQ(GoalStore::openExisting(file)->goals(), (std::vector<GoalListing>{{"g1", "Changed"}}))
      << "the log beside the store belongs to it";
}

TEST_F(ReadOnlyStoreTest, ALogThatCannotBeReadIsNotIgnored) {
  const std::string copy = folder.file("copy.sqlite");
  {
    GoalStore open = GoalStore::open(file);
    open.import({goal("g1", "Changed")});
    fs::copy_file(file, copy);
    fs::copy_file(file + "-wal", copy + "-wal");
  }
  for (const auto& entry : fs::directory_iterator(folder.path())) {
    fs::permissions(entry.path(), readable);
  }
  fs::permissions(folder.path(), enterable);
  const AsNobody rights;
  EXPECT_EQ(errorOf([&] { GoalStore::openExisting(copy)->goals(); }),
            copy +
                ": has changes in a log beside it, which cannot be read in a folder "
                "that is read-only");
}

TEST_F(ReadOnlyStoreTest, AChangeDuringReadingIsNoticed) {
  fs::permissions(file, readable);
  fs::permissions(folder.path(), enterable);
  std::optional<GoalStore> store;
  {
    const AsNobody rights;
    store = GoalStore::openExisting(file);
  }
  fs::permissions(file, fs::perms(0644));
  fs::permissions(folder.path(), fs::perms(0755));
  GoalStore::open(file).import({goal("g1", "Changed")});
  const std::string changed = file + ": was changed by another program while it was read";
  EXPECT_EQ(errorOf([&] { store->goals(); }), changed);
  EXPECT_EQ(errorOf([&] { store->result("g1"); }), changed);
  EXPECT_EQ(errorOf([&] { store->outcomes("g1"); }), changed);
}

}  // namespace
}  // namespace vemra::desk
