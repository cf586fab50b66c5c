#include "apps/desk/store/NewFile.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"

#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class NewFileTest : public ::testing::Test {
 protected:
  bool exists() const { return std::filesystem::exists(path); }

  /// Whether a connection, in this process or in another one, has a lock on the file.
  bool isLocked() const {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(::fcntl(watch_.value(), F_OFD_GETLK, &lock), 0);
    return lock.l_type != F_UNLCK;
  }

  /// Opens the file for `isLocked`. Closing it would drop the locks of this process.
  void watch() { watch_ = ::open(path.c_str(), O_RDWR | O_CLOEXEC); }
  void TearDown() override {
    if (watch_) ::close(*watch_);
  }

  TemporaryFolder folder;
  const std::string path = folder.file("goals.sqlite");

 private:
  std::optional<int> watch_;
};

TEST_F(NewFileTest, IsRemovedWhenItStaysEmpty) {
  std::optional<NewFile> file(std::in_place, path, path);
  EXPECT_TRUE(exists());
  file.reset();
  EXPECT_FALSE(exists());
}

TEST_F(NewFileTest, StaysWhenItIsKeptOrFilledOrHasAFileBesideIt) {
  NewFile(path, path).keep();
  EXPECT_TRUE(exists());
  for (const char* name : {"goals.sqlite", "goals.sqlite-wal", "goals.sqlite-journal"}) {
    std::filesystem::remove(path);
    std::optional<NewFile> file(std::in_place, path, path);
    folder.write(name, "something");
    file.reset();
    EXPECT_TRUE(exists()) << name;
    std::filesystem::remove(folder.file(name));
  }
}

TEST_F(NewFileTest, AnotherFileAtItsPathStays) {
  {
    const NewFile file(path, path);
    std::filesystem::rename(folder.write("other", ""), path);
  }
  EXPECT_TRUE(exists());
}

// The other program has read the file, and writes nothing before its transaction ends.
TEST_F(NewFileTest, StaysWhenAnotherProgramHasBegunToUseIt) {
  std::optional<NewFile> file(std::in_place, path, path);
  watch();
  RawDatabase other(path);
  ASSERT_EQ(other.run("BEGIN; SELECT * FROM sqlite_schema"), "");
  ASSERT_TRUE(isLocked());
  file.reset();
  EXPECT_TRUE(exists());
  EXPECT_TRUE(isLocked()) << "the lock of the other program is gone";
  EXPECT_EQ(other.run("CREATE TABLE t (c); COMMIT"), "");
  EXPECT_EQ(RawDatabase(path).value("SELECT count(*) FROM t"), "0");
}

TEST_F(NewFileTest, IsRemovedWhenAnotherProgramHasStoppedUsingIt) {
  std::optional<NewFile> file(std::in_place, path, path);
  RawDatabase other(path);
  ASSERT_EQ(other.run("BEGIN; SELECT * FROM sqlite_schema; ROLLBACK"), "");
  file.reset();
  EXPECT_FALSE(exists());
}

}  // namespace
}  // namespace vemra::desk
