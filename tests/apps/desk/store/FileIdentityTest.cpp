#include "apps/desk/store/FileIdentity.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

TEST(FileIdentityTest, AFileIsMissingWhenItsNameOrItsFolderDoesNotExist) {
  const TemporaryFolder folder;
  const std::string there = folder.write("there", "");
  EXPECT_FALSE(isMissing(there));
  EXPECT_TRUE(isMissing(folder.file("missing")));
  EXPECT_TRUE(isMissing(folder.file("missing/too")));
  EXPECT_TRUE(isMissing(there + "/below")) << "a file stands where its folder was";
}

TEST(FileIdentityTest, APathThatCannotBeExaminedIsNotMissing) {
  const TemporaryFolder folder;
  EXPECT_FALSE(isMissing(folder.file(std::string(300, 'x')))) << "a name longer than names may be";
}

}  // namespace
}  // namespace vemra::desk
