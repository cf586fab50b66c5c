#include "VemraPlatform/date/AbbreviatedDate.hpp"

#include "VemraPlatform/date/LocaleIdentifier.hpp"

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

#include <unicode/calendar.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/strenum.h>
#include <unicode/timezone.h>

namespace vemra::date {
namespace {

void require(UErrorCode status) {
  if (status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
  if (U_FAILURE(status)) {
    throw std::runtime_error(std::string("ICU cannot write dates: ") + u_errorName(status));
  }
}

/// The calendar the locale asks for, else the first of those in use in its region.
std::string calendarOf(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  auto asked = locale.getKeywordValue<std::string>("calendar", status);
  if (U_SUCCESS(status) && !asked.empty()) return asked;
  status = U_ZERO_ERROR;
  const std::unique_ptr<icu::StringEnumeration> inUse(
      icu::Calendar::getKeywordValuesForLocale("calendar", locale, true, status));
  const char* first = U_SUCCESS(status) ? inUse->next(nullptr, status) : nullptr;
  return U_SUCCESS(status) && first != nullptr ? first : "gregorian";
}

std::unique_ptr<icu::Calendar> makeCalendar(const icu::Locale& locale,
                                            const std::string& timeZone) {
  UErrorCode status = U_ZERO_ERROR;
  // Takes an unknown zone for one that is never ahead nor behind.
  icu::TimeZone* zone = icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone));
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(zone, locale, status));
  require(status);
  // ICU counts in the Julian calendar before 15 October 1582 unless told otherwise, and so do the
  // calendars it derives from the Gregorian one. This is some 30,000 years ago.
  constexpr UDate longAgo = -1e15;
  if (auto* gregorian = dynamic_cast<icu::GregorianCalendar*>(calendar.get())) {
    gregorian->setGregorianChange(longAgo, status);
    require(status);
  }
  return calendar;
}

std::unique_ptr<icu::SimpleDateFormat> makeFormat(const std::string& localeName,
                                                  const std::string& timeZone) {
  const std::string identifier = icuLocale(localeName).value_or("");
  // An empty name is the root locale for this class; only a null one is the process's own.
  icu::Locale locale(identifier.c_str());
  UErrorCode status = U_ZERO_ERROR;
  locale.setKeywordValue("calendar", calendarOf(locale).c_str(), status);
  require(status);
  const std::unique_ptr<icu::DateTimePatternGenerator> generator(
      icu::DateTimePatternGenerator::createInstance(locale, status));
  require(status);
  const icu::UnicodeString pattern =
      generator->getBestPattern(u"yMMMd", UDATPG_MATCH_ALL_FIELDS_LENGTH, status);
  require(status);
  auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
  require(status);
  format->adoptCalendar(makeCalendar(locale, timeZone).release());
  return format;
}

/// The formats in use. Building one takes milliseconds, writing a date with it microseconds.
class Formats {
 public:
  std::string write(Instant instant, const std::string& locale, const std::string& timeZone) {
    constexpr UDate millisecondsPerSecond = 1000;
    icu::UnicodeString written;
    {
      const std::lock_guard lock(mutex_);
      format(locale, timeZone)
          .format(static_cast<UDate>(instant.secondsSinceEpoch) * millisecondsPerSecond, written);
    }
    std::string utf8;
    return written.toUTF8String(utf8);
  }

 private:
  struct Entry {
    std::string locale;
    std::string timeZone;
    std::unique_ptr<icu::SimpleDateFormat> format;
  };

  icu::SimpleDateFormat& format(const std::string& locale, const std::string& timeZone) {
    // A process shows dates for one user, a test for some dozens: a list is the quickest table.
    constexpr std::size_t most = 32;
    const auto known = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return entry.locale == locale && entry.timeZone == timeZone;
    });
    if (known != entries_.end()) return *known->format;
    if (entries_.size() == most) entries_.clear();
    entries_.push_back({locale, timeZone, makeFormat(locale, timeZone)});
    return *entries_.back().format;
  }

  std::mutex mutex_;
  std::vector<Entry> entries_;
};

}  // namespace

std::string abbreviatedDate(Instant instant, const std::string& locale,
                            const std::string& timeZone) {
  static Formats formats;
  return formats.write(instant, locale, timeZone);
}

}  // namespace vemra::date
