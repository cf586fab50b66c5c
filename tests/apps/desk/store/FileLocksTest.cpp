#include "apps/desk/store/FileLocks.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class FileLocksTest : public ::testing::Test {
 protected:
  FileLocksTest() : opened_(::open(locked.c_str(), O_RDWR | O_CLOEXEC)) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(::fcntl(opened_, F_SETLK, &lock), 0);
  }
  ~FileLocksTest() override { ::close(opened_); }

  TemporaryFolder folder;
  const std::string locked = folder.write("locked", "");
  const FileIdentity ours = identityAt(locked).value();
  const FileIdentity other = identityAt(folder.write("other", "")).value();

 private:
  int opened_;
};

TEST_F(FileLocksTest, ListTheProcessesOfTheFileAlone) {
  const auto holders = lockHolders(ours, ours);
  if (!holders) GTEST_SKIP() << "the locks of this file system are not listed";
  EXPECT_EQ(*holders, std::set<pid_t>{::getpid()});
  EXPECT_EQ(lockHolders(other, ours), std::set<pid_t>());
}

TEST_F(FileLocksTest, AreUnknownWhenTheLocksOfThisProcessAreNotListed) {
  EXPECT_EQ(lockHolders(other, other), std::nullopt);
  EXPECT_EQ(lockHolders(ours, other), std::nullopt);
}

}  // namespace
}  // namespace vemra::desk
