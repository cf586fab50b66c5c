#include "VemraPlatform/date/TimeZone.hpp"
#include "VemraPlatform/date/TimeZoneSetting.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

namespace fs = std::filesystem;
using date::zoneOfPath;

class ZoneOfPath : public ::testing::Test {
 protected:
  ZoneOfPath() { fs::create_directories(folder / "below"); }
  ~ZoneOfPath() override { fs::remove_all(folder); }
  ZoneOfPath(const ZoneOfPath&) = delete;
  ZoneOfPath& operator=(const ZoneOfPath&) = delete;

  std::string copy(const std::string& name, const fs::path& database = date::zoneinfoFolder) const {
    fs::copy_file(database / name, folder / "copy", fs::copy_options::overwrite_existing);
    return (folder / "copy").string();
  }

  /// A database made by the test: copies below `posix` and `right` are not installed everywhere.
  fs::path database() const {
    const fs::path plain = fs::path(date::zoneinfoFolder) / "America/St_Johns";
    const fs::path zoneinfo = folder / "zoneinfo";
    for (const char* copies : {"", "posix", "right"}) {
      fs::create_directories(zoneinfo / copies / "America");
      fs::copy_file(plain, zoneinfo / copies / "America/St_Johns");
    }
    // Leap seconds change the content, and so do more bytes behind the last field.
    std::ofstream(zoneinfo / "right/America/St_Johns", std::ios::binary | std::ios::app) << "more";
    return zoneinfo;
  }

  std::string link(const std::string& target, const std::string& name = "link") const {
    fs::remove(folder / name);
    fs::create_symlink(target, folder / name);
    return (folder / name).string();
  }

  const fs::path folder =
      fs::path(::testing::TempDir()) / ("vemra-zone-of-path-" + std::to_string(getpid()));
};

TEST_F(ZoneOfPath, IsTheNameBelowAZoneinfoFolder) {
  EXPECT_EQ(zoneOfPath("/usr/share/zoneinfo/Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(zoneOfPath("/no/such/zoneinfo/Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(zoneOfPath("/no/such/zoneinfo/posix/Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(zoneOfPath("/no/such/zoneinfo/right/Europe/Berlin"), "Europe/Berlin");
  EXPECT_EQ(zoneOfPath("/no/such/zoneinfo/right/posix/Europe/Berlin"), std::nullopt);
  EXPECT_EQ(zoneOfPath("/no/such/zoneinfo/Mars/Olympus"), std::nullopt);
  EXPECT_EQ(zoneOfPath("/no/such/folder/Europe/Berlin"), std::nullopt);
}

TEST_F(ZoneOfPath, FollowsLinks) {
  EXPECT_EQ(zoneOfPath(link("/usr/share/zoneinfo/Asia/Tokyo")), "Asia/Tokyo");
  EXPECT_EQ(zoneOfPath(link("/no/such/zoneinfo/Asia/Tokyo")), "Asia/Tokyo") << "no such file";
  link("/usr/share/zoneinfo/Asia/Tokyo");
  link("../link", "below/relative");
  EXPECT_EQ(zoneOfPath((folder / "below/relative").string()), "Asia/Tokyo");
  EXPECT_EQ(zoneOfPath(link("link", "twice")), "Asia/Tokyo");
  fs::create_directory_symlink(folder / "below", folder / "elsewhere");
  EXPECT_EQ(zoneOfPath((folder / "elsewhere/relative").string()), "Asia/Tokyo");
  EXPECT_EQ(zoneOfPath(link("link")), std::nullopt) << "a cycle of links is no zone";
}

TEST_F(ZoneOfPath, OfACopyIsTheZoneWithTheSameContent) {
  EXPECT_EQ(zoneOfPath(copy("Asia/Kathmandu")), "Asia/Kathmandu") << "the first of two names";
  EXPECT_EQ(zoneOfPath(link("copy")), "Asia/Kathmandu");
}

TEST_F(ZoneOfPath, OfACopyIsTheZoneWithTheSameContentBelowPosixAndRight) {
  const fs::path zoneinfo = database();
  EXPECT_EQ(zoneOfPath(copy("posix/America/St_Johns", zoneinfo), zoneinfo.string()),
            "America/St_Johns");
  const std::string right = copy("right/America/St_Johns", zoneinfo);
  EXPECT_EQ(zoneOfPath(right, zoneinfo.string()), "America/St_Johns");
  fs::remove(zoneinfo / "right/America/St_Johns");
  EXPECT_EQ(zoneOfPath(right, zoneinfo.string()), "NST3:30NDT,M3.2.0,M11.1.0") << "its rule";
}

TEST_F(ZoneOfPath, OfACopyWithManyNamesIsTheAlphabeticallyFirstName) {
  const std::vector<std::string> names = {"Etc/UCT", "Etc/UTC", "Etc/Universal", "Etc/Zulu",
                                          "UCT",     "UTC",     "Universal",     "Zulu"};
  const auto first = std::find_if(names.begin(), names.end(), [](const std::string& name) {
    return fs::exists(fs::path(date::zoneinfoFolder) / name);
  });
  ASSERT_NE(first, names.end());
  EXPECT_EQ(zoneOfPath(copy(*first)), *first);
  EXPECT_EQ(zoneOfPath(copy("UTC")), *first);
}

TEST_F(ZoneOfPath, OfAFileOfNoZoneIsItsRule) {
  std::string content = *date::TimeZoneFile::contentOf(copy("Europe/Berlin"));
  const std::size_t rule = content.rfind("CET-1CEST");
  ASSERT_NE(rule, std::string::npos);
  content.replace(rule, 3, "XYZ");
  std::ofstream(folder / "copy", std::ios::binary) << content;
  EXPECT_EQ(zoneOfPath((folder / "copy").string()), "XYZ-1CEST,M3.5.0,M10.5.0/3");
  content.erase(rule, content.size() - rule - 1);
  std::ofstream(folder / "copy", std::ios::binary) << content;
  EXPECT_EQ(zoneOfPath((folder / "copy").string()), std::nullopt) << "has no rule";
}

TEST_F(ZoneOfPath, OfAFileThatIsNoTimeZoneIsNil) {
  std::ofstream(folder / "copy") << "TZif and nothing else";
  EXPECT_EQ(zoneOfPath((folder / "copy").string()), std::nullopt);
  EXPECT_EQ(zoneOfPath((folder / "missing").string()), std::nullopt);
  EXPECT_EQ(zoneOfPath(folder.string()), std::nullopt);
  EXPECT_EQ(zoneOfPath(""), std::nullopt);
}

TEST_F(ZoneOfPath, OnAMachineWithoutTimeZoneFilesIsTheNameInItOrItsRule) {
  fs::create_directories(folder / "empty/zoneinfo");
  for (const std::string& database :
       {std::string("/no/such/zoneinfo"), (folder / "empty/zoneinfo").string()}) {
    EXPECT_EQ(zoneOfPath(link("/usr/share/zoneinfo/Asia/Tokyo"), database), "Asia/Tokyo");
    EXPECT_EQ(zoneOfPath(copy("Asia/Tokyo"), database), "JST-9") << "no file has its name";
    EXPECT_EQ(zoneOfPath(database, database), std::nullopt);
  }
}

TEST(ZoneOfSetting, OnAMachineWithoutTimeZoneFilesIsAnyNameThatICUKnows) {
  const std::string none = "/no/such/zoneinfo";
  EXPECT_EQ(date::zoneOfSetting("Europe/Berlin", none), "Europe/Berlin");
  EXPECT_EQ(date::zoneOfSetting("JST", none), "JST");
  EXPECT_EQ(date::zoneOfSetting("JST"), "UTC") << "where there are files, and none of that name";
  EXPECT_EQ(date::zoneOfSetting("XYZ-1", none), "XYZ-1") << "a rule needs no file";
  EXPECT_EQ(date::zoneOfSetting("", none), "UTC");
  EXPECT_EQ(date::zoneOfSetting("nonsense", none), std::nullopt);
}

}  // namespace
}  // namespace vemra::testing
