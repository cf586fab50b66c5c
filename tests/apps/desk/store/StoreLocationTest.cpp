#include "apps/desk/store/StoreLocation.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"

#include <cstdlib>
#include <map>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Restores the variables that the location depends on in its destructor.
class StoreLocationTest : public ::testing::Test {
 protected:
  StoreLocationTest() {
    for (const char* name : {"HOME", "XDG_DATA_HOME"}) {
      const char* value = std::getenv(name);
      before_[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
      ::unsetenv(name);
    }
  }
  ~StoreLocationTest() override {
    for (const auto& [name, value] : before_) {
      if (value) {
        ::setenv(name, value->c_str(), 1);
      } else {
        ::unsetenv(name);
      }
    }
  }

  static void set(const char* name, const char* value) { ::setenv(name, value, 1); }

 private:
  std::map<const char*, std::optional<std::string>> before_;
};

TEST_F(StoreLocationTest, IsInTheDataFolder) {
  set("HOME", "/home/ada");
  set("XDG_DATA_HOME", "/data");
  EXPECT_EQ(userStoreFile(), "/data/vemra-desk/goals.sqlite");
}

TEST_F(StoreLocationTest, IsBelowTheHomeFolderWithoutADataFolder) {
  set("HOME", "/home/ada");
  EXPECT_EQ(userStoreFile(), "/home/ada/.local/share/vemra-desk/goals.sqlite");
  for (const char* ignored : {"", "data", "./data"}) {
    set("XDG_DATA_HOME", ignored);
    EXPECT_EQ(userStoreFile(), "/home/ada/.local/share/vemra-desk/goals.sqlite") << ignored;
  }
}

TEST_F(StoreLocationTest, IsBelowTheHomeOfTheUsersEntryWithoutTheVariable) {
  const passwd* user = ::getpwuid(::getuid());
  if (user == nullptr) GTEST_SKIP() << "this user has no entry";
  const std::string expected = std::string(user->pw_dir) + "/.local/share/vemra-desk/goals.sqlite";
  EXPECT_EQ(userStoreFile(), expected);
  for (const char* ignored : {"", "home/ada"}) {
    set("HOME", ignored);
    EXPECT_EQ(userStoreFile(), expected) << ignored;
  }
}

TEST_F(StoreLocationTest, IsUnknownForAUserWithoutAHome) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can become a user without an entry";
  constexpr uid_t withoutEntry = 4711;
  ASSERT_EQ(::getpwuid(withoutEntry), nullptr);
  const auto ask = [] {
    if (::setuid(withoutEntry) != 0 || ::unsetenv("HOME") != 0 ||
        ::unsetenv("XDG_DATA_HOME") != 0) {
      ::_exit(2);
    }
    const bool isNowhere =
        errorOf([] { userStoreFile(); }) == "goals.sqlite: has no place: there is no home folder";
    ::_exit(isNowhere ? 0 : 1);
  };
  EXPECT_EXIT(ask(), ::testing::ExitedWithCode(0), "");
}

TEST_F(StoreLocationTest, FoldersAreMadeForTheUserAlone) {
  const TemporaryFolder folder;
  makeFolderOf(folder.file("a/b/goals.sqlite"));
  makeFolderOf(folder.file("a/b/goals.sqlite"));
  for (const char* made : {"a", "a/b"}) {
    struct stat status {};
    ASSERT_EQ(::stat(folder.file(made).c_str(), &status), 0) << made;
    EXPECT_EQ(status.st_mode & 0777, 0700u) << made;
  }
  EXPECT_FALSE(std::filesystem::exists(folder.file("a/b/goals.sqlite")));
}

TEST_F(StoreLocationTest, AFolderThatCannotBeMadeIsNamed) {
  const TemporaryFolder folder;
  const std::string file = folder.write("file", "");
  EXPECT_EQ(errorOf([&] { makeFolderOf(file + "/b/goals.sqlite"); }),
            file + ": cannot be made: File exists");
}

}  // namespace
}  // namespace vemra::desk
