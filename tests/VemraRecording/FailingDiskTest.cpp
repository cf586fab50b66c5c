#include "tests/VemraRecording/RecordedHost.hpp"

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

namespace vemra::recording {
namespace {

using build::person;

/// No file of this process grows beyond a size for a while, as on a disk that is full.
class Room {
 public:
  explicit Room(std::uintmax_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~Room() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

class FailingDiskTest : public RecordedHost {};

// A disk may be full at any byte: of the step, of what ends the document, or of the first result.
TEST_F(FailingDiskTest, WhereverTheDiskIsFullTheFileIsTheCaseUntilThen) {
  record();
  show(addScreen(), resultOf({person("ada", "Ada")}));
  screens[0].press(of("ada", ".outcome.start"));
  const std::string before = TemporaryFolder::readFile(file);
  screens[0].type(of("ada", ".outcome.note"), "what is typed");
  const std::string after = TemporaryFolder::readFile(file);
  ASSERT_GT(after.size(), before.size());
  for (std::size_t room = before.size(); room < after.size(); ++room) {
    screens.clear();
    std::filesystem::remove(file);
    failures.clear();
    record();
    show(addScreen(), resultOf({person("ada", "Ada")}));
    screens[0].press(of("ada", ".outcome.start"));
    {
      const Room limited(room);
      screens[0].type(of("ada", ".outcome.note"), "what is typed");
    }
    ASSERT_EQ(TemporaryFolder::readFile(file), before) << "with room for " << room << " bytes";
    ASSERT_EQ(failures,
              std::vector<std::string>{file + ": the recording has ended: File too large"});
    EXPECT_NE(screens[0].outline().find("what is typed"), std::string::npos)
        << "the screen works on";
    screens[0].press(of("ada", ".outcome.cancel"));
    EXPECT_EQ(TemporaryFolder::readFile(file), before) << "a later step would not fit";
    EXPECT_EQ(failures.size(), 1U) << "once";
  }
}

TEST_F(FailingDiskTest, WithoutRoomForACallTheEventThatMadeItIsNotInTheCaseEither) {
  record();
  show(addScreen(), resultOf({person("ada", "Ada")}));
  const std::string before = TemporaryFolder::readFile(file);
  screens[0].press(testing::button("Ada"));
  const std::size_t after = std::filesystem::file_size(file);
  for (std::size_t room = before.size(); room < after; ++room) {
    screens.clear();
    std::filesystem::remove(file);
    calls.clear();
    record();
    show(addScreen(), resultOf({person("ada", "Ada")}));
    {
      const Room limited(room);
      screens[0].press(testing::button("Ada"));
    }
    ASSERT_EQ(TemporaryFolder::readFile(file), before) << "with room for " << room << " bytes";
    EXPECT_EQ(calls.size(), 1U) << "the host gets the call";
  }
}

TEST_F(FailingDiskTest, AnExceptionOfTheHostsNoticeDisturbsNothing) {
  folder.write("case.json", "an earlier recording");
  int notices = 0;
  recorder.emplace(file, Program{"a host", "1"}, Texts::plain, [&](const Failure&) {
    ++notices;
    throw std::runtime_error("no window for a notice");
  });
  show(addScreen(), resultOf({person("ada", "Ada")}));
  screens[0].press(testing::button("Ada"));
  EXPECT_EQ(notices, 1);
  EXPECT_EQ(calls.size(), 1U);
}

TEST_F(FailingDiskTest, WithoutRoomForTheFirstResultThereIsNoFile) {
  record();
  {
    const Room limited(100);
    show(addScreen(), resultOf({person("ada", "Ada")}));
  }
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(failures.size(), 1U);
  screens[0].press(testing::button("Ada"));
  EXPECT_EQ(calls.size(), 1U);
}

TEST_F(FailingDiskTest, AFileThatIsThereStaysAsItIs) {
  folder.write("case.json", "an earlier recording");
  record();
  show(addScreen(), resultOf({}));
  EXPECT_EQ(folder.read("case.json"), "an earlier recording");
  EXPECT_EQ(failures,
            std::vector<std::string>{
                file + ": the recording has ended: a file of this name is there already"});
}

TEST_F(FailingDiskTest, AFolderThatIsNotThereIsAFailureOfTheRecordingAlone) {
  recorder.emplace(folder.file("no/case.json"), Program{"a host", "1"}, Texts::plain,
                   [this](const Failure& failure) { failures.push_back(failure.text()); });
  show(addScreen(), resultOf({person("ada", "Ada")}));
  EXPECT_EQ(failures,
            std::vector<std::string>{folder.file("no/case.json") +
                                     ": the recording has ended: No such file or directory"});
  screens[0].press(testing::button("Ada"));
  EXPECT_EQ(calls.size(), 1U);
}

TEST_F(FailingDiskTest, AnotherTimeZoneEndsTheRecording) {
  record();
  const auto result = resultOf({person("ada", "Ada")});
  testing::Screen& screen = addScreen();
  show(screen, result);
  ui::Environment moved;
  moved.timeZone = "Europe/Berlin";
  screen.setEnvironment(moved);
  show(screen, result);
  EXPECT_EQ(failures, std::vector<std::string>{
                          file + ": the recording has ended: the locale or the time zone has "
                                 "changed, which a case cannot hold"});
  EXPECT_EQ(Replayed(file).read.steps.size(), 0U);
}

}  // namespace
}  // namespace vemra::recording
