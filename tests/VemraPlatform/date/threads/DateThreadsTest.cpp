#include "VemraPlatform/date/AbbreviatedDate.hpp"
#include "tests/VemraPlatform/date/threads/Locks.hpp"

#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using date::abbreviatedDate;

constexpr date::Instant sunday{1736071200};  // 2025-01-05T10:00:00Z

TEST(DateThreads, WriteManyDatesAtOnce) {
  // More time zones than the cache keeps, so that each thread drops some and makes them again.
  std::vector<std::thread> threads;
  std::vector<std::string> wrong(4);
  for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
    threads.emplace_back([thread, &wrong] {
      const date::Instant evening = *date::parseInternetDateTime("2025-01-05T23:30:00Z");
      for (int round = 0; round < 240; ++round) {
        const bool isAhead = (round + static_cast<int>(thread)) % 2 == 0;
        const bool isGerman = round % 3 == 0;
        const std::string timeZone =
            std::string("Etc/GMT") + (isAhead ? "-" : "+") + std::to_string(1 + round % 12);
        const std::string text = abbreviatedDate(evening, isGerman ? "de_DE" : "en_US", timeZone);
        const std::string expected = isGerman ? (isAhead ? "6. Jan. 2025" : "5. Jan. 2025")
                                              : (isAhead ? "Jan 6, 2025" : "Jan 5, 2025");
        if (text != expected) wrong[thread] = text + " in " + timeZone;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<std::string>(4));
}

TEST(DateThreads, CheckLocalesAtOnce) {
  std::vector<std::thread> threads;
  std::vector<int> known(4);
  for (int& count : known) {
    threads.emplace_back([&count] {
      for (const char* locale : {"en_US", "en-US-u-nu-arab", "fa_IR@calendar=gregory", "xx_YY"}) {
        if (date::isKnownLocale(locale)) ++count;
      }
      for (const char* timeZone : {"Europe/Berlin", "America/Coyhaique", "Mars/Olympus"}) {
        if (date::isKnownTimeZone(timeZone)) ++count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(known, std::vector<int>(4, 5));
}

TEST(DateThreads, TakeNoLockWithCachedFormats) {
#ifdef VEMRA_LOCKS_ARE_NOT_COUNTED
  GTEST_SKIP() << "locks are not counted under a sanitizer";
#endif
  std::mutex mutex;
  const long before = locksTaken();
  mutex.lock();
  mutex.unlock();
  ASSERT_EQ(locksTaken(), before + 1) << "locks are not counted";
  for (const char* locale : {"en_US", "de_DE", "th_TH", "fa_IR", "ar_EG", "ja_JP"}) {
    for (const char* timeZone : {"UTC", "Europe/Berlin", "CET-1CEST,M3.5.0,M10.5.0/3"}) {
      // ICU prepares how it writes numbers while it writes the first few.
      const auto write = [&](int days) {
        for (int day = 0; day < days; ++day) {
          abbreviatedDate({sunday.secondsSinceEpoch + day * 86400}, locale, timeZone);
        }
      };
      write(100);
      const long taken = locksTaken();
      write(1000);
      EXPECT_EQ(locksTaken() - taken, 0) << locale << ", " << timeZone;
    }
  }
}

TEST(DateThreads, FreeTheirFormats) {
  const auto endSome = [](int count) {
    for (int ended = 0; ended < count; ++ended) {
      std::thread([] { abbreviatedDate(sunday, "en_US", "Europe/Berlin"); }).join();
    }
    return static_cast<long>(mallinfo2().uordblks);
  };
  const long before = endSome(20);
  const long after = endSome(100);
  // The formats of a single thread take more than this.
  EXPECT_LT(after - before, 20000);
}

/// Writes a date when it is destroyed.
class LateWriter {
 public:
  explicit LateWriter(std::string* result) : result_(result) {}
  LateWriter(const LateWriter&) = delete;
  LateWriter& operator=(const LateWriter&) = delete;
  ~LateWriter() {
    const std::string written = abbreviatedDate(sunday, "en_US", "Europe/Berlin") + ", " +
                                abbreviatedDate(sunday, "de_DE", "Asia/Tokyo");
    if (result_ != nullptr) {
      *result_ = written;
    } else {
      std::fputs(written.c_str(), stderr);
    }
  }

 private:
  std::string* result_;
};

TEST(DateThreads, WriteDatesWhileTheyEnd) {
  std::string late;
  std::thread([&] {
    // Made before the thread's formats, and so destroyed after them.
    thread_local const LateWriter writer(&late);
    EXPECT_EQ(abbreviatedDate(sunday, "en_US", "UTC"), "Jan 5, 2025");
  }).join();
  EXPECT_EQ(late, "Jan 5, 2025, 5. Jan. 2025");
}

TEST(DateThreadsDeathTest, WriteDatesWhileTheProgramEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto end = [] {
    static const LateWriter writer(nullptr);
    abbreviatedDate(sunday, "en_US", "UTC");
    std::exit(0);
  };
  EXPECT_EXIT(end(), ::testing::ExitedWithCode(0), "^Jan 5, 2025, 5\\. Jan\\. 2025$");
}

}  // namespace
}  // namespace vemra::testing
