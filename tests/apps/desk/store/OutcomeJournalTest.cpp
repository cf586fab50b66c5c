#include "apps/desk/store/OutcomeJournal.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/store/FileCalls.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

WaitingOutcome waitingOutcome(const std::string& id, const std::string& note = "met at the fair") {
  return {id,
          "inode 1",
          "2025-01-05T10:00:00Z",
          "g1",
          "Find a lead",
          "Ada",
          GoalOutcomeRecordingInput{GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::helped,
                                    note, std::nullopt}};
}

/// The error message of a call; "" after a success.
template <class Act>
std::string failureOf(const Act& act) {
  try {
    act();
  } catch (const std::exception& failure) {
    return failure.what();
  }
  return "";
}

class OutcomeJournalTest : public ::testing::Test {
 protected:
  std::vector<std::string> waiting() const {
    std::vector<std::string> ids;
    for (const WaitingOutcome& each : journal.read()) ids.push_back(each.id);
    return ids;
  }
  std::string fileText() const { return TemporaryFolder::readFile(journal.file()); }
  void write(const std::string& text) const {
    folder.write("goals.sqlite-waiting", text);
    fs::permissions(journal.file(), fs::perms::owner_read | fs::perms::owner_write);
  }
  std::string refusal() const {
    return failureOf([&] { journal.read(); });
  }

  const std::string head = "{\"format\": \"vemra-desk waiting outcomes\", \"version\": 1}\n";
  TemporaryFolder folder;
  OutcomeJournal journal{folder.file("goals.sqlite")};
};

TEST_F(OutcomeJournalTest, IsBesideTheStoreAndReadingMakesNoFile) {
  EXPECT_EQ(journal.file(), folder.file("goals.sqlite-waiting"));
  EXPECT_THAT(waiting(), IsEmpty());
  journal.settle("a");
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(OutcomeJournalTest, AStoreBehindALinkHasOneJournal) {
  folder.write("goals.sqlite", "");
  fs::create_symlink(folder.file("goals.sqlite"), folder.file("link"));
  EXPECT_EQ(OutcomeJournal(folder.file("link")).file(), journal.file());
}

TEST_F(OutcomeJournalTest, EveryFieldIsReadBackByteForByte) {
  const WaitingOutcome written{
      "id",
      "inode 5",
      "2025-01-05T10:00:00Z",
      "g\n1",
      "\"Title\"",
      "A\u030ada",
      GoalOutcomeRecordingInput{GoalOutcomeSubjectKind::path, "", GoalOutcomeValue::somethingElse,
                                "two\nlines\u2028", "o1"}};
  journal.add(written);
  const std::vector<WaitingOutcome> read = journal.read();
  ASSERT_EQ(read.size(), 1u);
  EXPECT_EQ(read[0].id, written.id);
  EXPECT_EQ(read[0].store, written.store);
  EXPECT_EQ(read[0].savedAt, written.savedAt);
  EXPECT_EQ(read[0].goalID, written.goalID);
  EXPECT_EQ(read[0].goalTitle, written.goalTitle);
  EXPECT_EQ(read[0].subjectName, written.subjectName);
  EXPECT_EQ(read[0].input.subjectKind(), written.input.subjectKind());
  EXPECT_EQ(*read[0].input.subjectRef(), "");
  EXPECT_EQ(read[0].input.outcome(), written.input.outcome());
  EXPECT_EQ(*read[0].input.note(), "two\nlines\u2028");
  EXPECT_EQ(*read[0].input.correctsOutcomeID(), "o1");
}

TEST_F(OutcomeJournalTest, OutcomesWaitInTheirOrderUntilTheyAreSettled) {
  for (const char* id : {"a", "b", "c"}) journal.add(waitingOutcome(id));
  EXPECT_THAT(waiting(), ElementsAre("a", "b", "c"));
  journal.settle("b");
  EXPECT_THAT(waiting(), ElementsAre("a", "c"));
  journal.settle("nobody");
  EXPECT_THAT(waiting(), ElementsAre("a", "c"));
}

TEST_F(OutcomeJournalTest, TheFileIsRemovedWithTheLastOutcome) {
  journal.add(waitingOutcome("a"));
  journal.add(waitingOutcome("b"));
  journal.settle("a");
  EXPECT_TRUE(fs::exists(journal.file()));
  journal.settle("b");
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(OutcomeJournalTest, TheSameOutcomeTwiceWaitsOnce) {
  journal.add(waitingOutcome("a", "first"));
  journal.add(waitingOutcome("a", "second"));
  ASSERT_THAT(waiting(), ElementsAre("a"));
  EXPECT_EQ(journal.read()[0].input.note(), "first");
}

TEST_F(OutcomeJournalTest, OnlyItsOwnerMayReadIt) {
  const mode_t before = ::umask(0);
  journal.add(waitingOutcome("a"));
  ::umask(before);
  struct stat status {};
  ASSERT_EQ(::stat(journal.file().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0600u);
}

TEST_F(OutcomeJournalTest, APartlyWrittenLineIsIgnoredAndReplaced) {
  journal.add(waitingOutcome("a"));
  write(fileText() + "{\"waiting\": {\"id\": \"b\", \"goal");
  EXPECT_THAT(waiting(), ElementsAre("a"));
  journal.add(waitingOutcome("c"));
  EXPECT_THAT(waiting(), ElementsAre("a", "c"));
  EXPECT_THAT(fileText(), EndsWith("}}\n"));
}

TEST_F(OutcomeJournalTest, ALineThatLacksItsLineFeedOnlyCounts) {
  journal.add(waitingOutcome("a"));
  std::string text = fileText();
  text.pop_back();
  write(text);
  EXPECT_THAT(waiting(), ElementsAre("a"));
  journal.add(waitingOutcome("b"));
  EXPECT_THAT(waiting(), ElementsAre("a", "b"));
}

TEST_F(OutcomeJournalTest, APartlyWrittenFirstLineIsAnEmptyJournal) {
  for (std::size_t length = 0; length < head.size(); ++length) {
    write(head.substr(0, length));
    EXPECT_THAT(waiting(), IsEmpty()) << length;
  }
  journal.add(waitingOutcome("a"));
  EXPECT_THAT(waiting(), ElementsAre("a"));
}

TEST_F(OutcomeJournalTest, ATailOfNullBytesIsATailThatWasNotWritten) {
  journal.add(waitingOutcome("a"));
  const std::string whole = fileText();
  const std::string nulls(4096, '\0');
  const std::string withoutLineFeed = whole.substr(0, whole.size() - 1);
  for (const std::string& before :
       {whole, whole + "{\"waiting\": {\"id\": \"b\", \"goal", withoutLineFeed}) {
    write(before + nulls);
    EXPECT_THAT(waiting(), ElementsAre("a"));
    journal.add(waitingOutcome("c"));
    EXPECT_THAT(waiting(), ElementsAre("a", "c"));
    EXPECT_EQ(fileText().find('\0'), std::string::npos);
  }
  write(whole + nulls);
  journal.settle("a");
  EXPECT_THAT(waiting(), IsEmpty());
}

TEST_F(OutcomeJournalTest, AFirstLineThatEndsInNullBytesIsAnEmptyJournal) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{5}, head.size() - 1, head.size()}) {
    write(head.substr(0, length) + std::string(100, '\0'));
    EXPECT_THAT(waiting(), IsEmpty()) << length;
    journal.add(waitingOutcome("a"));
    EXPECT_THAT(waiting(), ElementsAre("a"));
    EXPECT_EQ(fileText().find('\0'), std::string::npos);
  }
}

TEST_F(OutcomeJournalTest, AForeignFileIsRefusedAndStays) {
  for (const char* text :
       {"SQLite format 3", "# notes\n", "{\"format\": \"other\", \"version\": 1}\n"}) {
    write(text);
    EXPECT_THAT(refusal(), StartsWith(journal.file() + ": line 1: ")) << text;
    EXPECT_NE(failureOf([&] { journal.add(waitingOutcome("a")); }), "");
    EXPECT_NE(failureOf([&] { journal.settle("a"); }), "");
    EXPECT_EQ(fileText(), text);
  }
}

TEST_F(OutcomeJournalTest, ANewerVersionIsRefusedAndNamed) {
  write("{\"format\": \"vemra-desk waiting outcomes\", \"version\": 2}\n");
  EXPECT_EQ(refusal(), journal.file() + ": line 1: /version: expected 1; found another version");
}

TEST_F(OutcomeJournalTest, ADamagedLineIsNamedWithItsPlace) {
  journal.add(waitingOutcome("a"));
  journal.add(waitingOutcome("b"));
  std::string text = fileText();
  text.replace(text.rfind("\"helped\""), 8, "\"hepled\"");
  write(text);
  EXPECT_THAT(refusal(), StartsWith(journal.file() + ": line 3: /waiting/value: expected one of"));
  EXPECT_EQ(fileText(), text);
}

TEST_F(OutcomeJournalTest, AnEntryThatIsNeitherWaitingNorSettledIsRefused) {
  for (const char* entry : {"{}", "{\"other\": 1}", "[]", ""}) {
    write(head + entry + "\n");
    EXPECT_THAT(refusal(), StartsWith(journal.file() + ": line 2: ")) << entry;
  }
}

TEST_F(OutcomeJournalTest, AFileThatOthersMayWriteOrThatIsNoFileIsRefused) {
  journal.add(waitingOutcome("a"));
  fs::permissions(journal.file(), fs::perms::group_write, fs::perm_options::add);
  EXPECT_EQ(refusal(), journal.file() + ": may be written by other users");
  fs::remove(journal.file());
  ASSERT_EQ(::mkfifo(journal.file().c_str(), 0600), 0);
  EXPECT_EQ(refusal(), journal.file() + ": is not a file");
  fs::remove(journal.file());
  fs::create_symlink(folder.write("elsewhere", ""), journal.file());
  EXPECT_THAT(refusal(), HasSubstr("cannot be opened"));
}

TEST_F(OutcomeJournalTest, OnAFullDiskTheJournalStaysUnchanged) {
  journal.add(waitingOutcome("a"));
  const std::string before = fileText();
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  rlimit little = limit;
  little.rlim_cur = before.size() + 10;
  std::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &little);
  const std::string error = failureOf([&] { journal.add(waitingOutcome("b")); });
  ::setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, SIG_DFL);
  EXPECT_THAT(error, StartsWith(journal.file() + ": cannot be written: "));
  EXPECT_EQ(fileText(), before);
}

TEST_F(OutcomeJournalTest, AFirstOutcomeThatDoesNotFitOnTheDiskLeavesNoFile) {
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  const std::string error = failureOf([&] { journal.add(waitingOutcome("a")); });
  FileCalls::succeed();
  EXPECT_THAT(error, StartsWith(journal.file() + ": cannot be written: "));
  EXPECT_FALSE(fs::exists(journal.file()));
}

TEST_F(OutcomeJournalTest, AFailureNeverMakesTheFileLonger) {
  journal.add(waitingOutcome("a"));
  const std::string before = fileText();
  write(before + "{\"waiting\": " + std::string(2'000, ' '));
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  EXPECT_NE(failureOf([&] { journal.add(waitingOutcome("b")); }), "");
  FileCalls::succeed();
  EXPECT_EQ(fileText(), before);
}

TEST_F(OutcomeJournalTest, AFileThatCannotBeExaminedIsRefused) {
  journal.add(waitingOutcome("a"));
  FileCalls::fail(FileCalls::Call::stat, EACCES);
  const std::string error = refusal();
  FileCalls::succeed();
  EXPECT_EQ(error, journal.file() + ": cannot be examined: Permission denied");
}

TEST_F(OutcomeJournalTest, AFileThatKeepsBeingReplacedIsWaitedForNoLongerThanALock) {
  journal.add(waitingOutcome("a"));
  FileCalls::fail(FileCalls::Call::stat, ENOENT);
  const std::string error =
      failureOf([&] { OutcomeJournal(folder.file("goals.sqlite"), 50ms).read(); });
  FileCalls::succeed();
  EXPECT_THAT(error, HasSubstr("is in use by another program"));
}

TEST_F(OutcomeJournalTest, ALockOfAnotherProgramIsWaitedForUpToTheCallersTimeLimit) {
  journal.add(waitingOutcome("a"));
  const int other = ::open(journal.file().c_str(), O_RDWR);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(failureOf([&] { OutcomeJournal(folder.file("goals.sqlite"), 50ms).read(); }),
              HasSubstr("is in use by another program"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
  ::close(other);
}

TEST_F(OutcomeJournalTest, AnAddedOutcomeIsSyncedAndARecordedOneIsNot) {
  journal.add(waitingOutcome("a"));
  const int ofFirst = FileCalls::syncs();
  EXPECT_GT(ofFirst, 0);
  journal.add(waitingOutcome("b"));
  const int added = FileCalls::syncs();
  EXPECT_GT(added, ofFirst);
  journal.settle("a");
  journal.settle("b");
  EXPECT_EQ(FileCalls::syncs(), added);
}

TEST_F(OutcomeJournalTest, AnOutcomeThatIsSyncedLaterIsReadAtOnceAndSyncedOnRequest) {
  const int before = FileCalls::syncs();
  EXPECT_FALSE(journal.sync()) << "without a file";
  journal.add(waitingOutcome("a"), JournalFile::Sync::later);
  EXPECT_EQ(FileCalls::syncs(), before);
  EXPECT_THAT(waiting(), ElementsAre("a"));
  EXPECT_TRUE(journal.sync());
  EXPECT_EQ(FileCalls::syncs(), before + 2) << "the file and its folder";
  FileCalls::fail(FileCalls::Call::fsync, EIO);
  EXPECT_THAT(failureOf([&] { static_cast<void>(journal.sync()); }),
              HasSubstr("cannot be written"));
  FileCalls::succeed();
}

// A power cut must not bring back an outcome that the user has discarded.
TEST_F(OutcomeJournalTest, AnOutcomeThatMustNotBeRecordedIsRemovedOnTheDisk) {
  journal.add(waitingOutcome("a"));
  journal.add(waitingOutcome("b"));
  int before = FileCalls::syncs();
  for (const char* id : {"a", "b"}) {
    journal.settle(id, JournalFile::Sync::now);
    EXPECT_GT(FileCalls::syncs(), before) << id;
    before = FileCalls::syncs();
  }
}

TEST_F(OutcomeJournalTest, SettledOutcomesDoNotMakeItGrowWithoutLimit) {
  journal.add(waitingOutcome("first"));
  std::size_t longest = 0;
  for (int i = 0; i < 300; ++i) {
    const std::string id = std::to_string(i);
    journal.add(waitingOutcome(id));
    journal.settle(id);
    longest = std::max(longest, fileText().size());
  }
  EXPECT_LT(longest, 25'000u) << "300 outcomes have some 100,000 bytes";
  EXPECT_THAT(waiting(), ElementsAre("first"));
  EXPECT_EQ(fs::status(journal.file()).permissions(), fs::perms(0600));
  EXPECT_FALSE(fs::exists(journal.file() + "-new"));
}

TEST_F(OutcomeJournalTest, WhileItIsRewrittenAFailureLosesNothing) {
  journal.add(waitingOutcome("first"));
  std::string error;
  for (int i = 0; i < 100 && error.empty(); ++i) {
    const std::string id = std::to_string(i);
    journal.add(waitingOutcome(id));
    FileCalls::fail(FileCalls::Call::fsync, EIO);
    error = failureOf([&] { journal.settle(id); });
    FileCalls::succeed();
  }
  EXPECT_THAT(error, StartsWith(journal.file() + ": cannot be rewritten: "));
  EXPECT_EQ(waiting().front(), "first");
  EXPECT_FALSE(fs::exists(journal.file() + "-new"));
}

TEST_F(OutcomeJournalTest, AFileThatIsLongerThanAJournalIsRefused) {
  journal.add(waitingOutcome("a"));
  fs::resize_file(journal.file(), JournalFile::most + 1);
  EXPECT_EQ(refusal(), journal.file() + ": is longer than 64 MiB");
}

TEST_F(OutcomeJournalTest, AnOutcomeForWhichThereIsNoRoomIsRefused) {
  const OutcomeJournal small(folder.file("goals.sqlite"), 2s, 64 << 10);
  const std::string note(15 << 10, 'n');
  small.add(waitingOutcome("small"));
  for (const char* id : {"a", "b", "c", "d"}) small.add(waitingOutcome(id, note));
  const std::string text = fileText();
  EXPECT_EQ(failureOf([&] { small.add(waitingOutcome("e", note)); }),
            small.file() + ": has no room for more");
  EXPECT_EQ(fileText(), text);
  small.settle("a");
  small.add(waitingOutcome("e", note));
  EXPECT_THAT(waiting(), ElementsAre("small", "b", "c", "d", "e")) << "it was rewritten without a";
}

// Another program removes the file while this one waits for its lock.
TEST_F(OutcomeJournalTest, AnOutcomeIsNeverWrittenIntoAFileThatWasRemoved) {
  journal.add(waitingOutcome("a"));
  const int other = ::open(journal.file().c_str(), O_RDWR);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  std::thread adding([&] { journal.add(waitingOutcome("b")); });
  ::usleep(50'000);
  fs::remove(journal.file());
  ::close(other);
  adding.join();
  EXPECT_THAT(waiting(), ElementsAre("b"));
}

TEST_F(OutcomeJournalTest, TwoProgramsAddWithoutLosingALine) {
  std::vector<std::thread> programs;
  for (const char* name : {"x", "y"}) {
    programs.emplace_back([this, name] {
      for (int i = 0; i < 20; ++i) journal.add(waitingOutcome(name + std::to_string(i)));
      for (int i = 0; i < 19; ++i) journal.settle(name + std::to_string(i));
    });
  }
  for (std::thread& program : programs) program.join();
  EXPECT_THAT(waiting(), ::testing::UnorderedElementsAre("x19", "y19"));
}

}  // namespace
}  // namespace vemra::desk
