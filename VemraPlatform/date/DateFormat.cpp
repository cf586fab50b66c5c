#include "VemraPlatform/date/DateFormat.hpp"

#include "VemraPlatform/date/LocaleIdentifier.hpp"

#include <new>
#include <stdexcept>

#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
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

/// The locale with the calendar and the digits that it asks for, without other keywords: with them
/// its name may be longer than ICU's pattern generator accepts.
icu::Locale localeForDates(const icu::Locale& asked) {
  icu::Locale locale(asked.getBaseName());
  UErrorCode status = U_ZERO_ERROR;
  locale.setKeywordValue("calendar", calendarOf(asked).c_str(), status);
  const auto numbers = asked.getKeywordValue<std::string>("numbers", status);
  if (!numbers.empty()) locale.setKeywordValue("numbers", numbers.c_str(), status);
  require(status);
  return locale;
}

std::unique_ptr<icu::Calendar> makeCalendar(const icu::Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  // Local time is handed in, so the calendar's own zone is never ahead nor behind.
  std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
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

}  // namespace

DateFormat::DateFormat(const std::string& localeName) {
  const std::string identifier = icuLocale(localeName).value_or("");
  // An empty name is the root locale for this class; only a null one is the process's own.
  const icu::Locale locale = localeForDates(icu::Locale(identifier.c_str()));
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::DateTimePatternGenerator> generator(
      icu::DateTimePatternGenerator::createInstance(locale, status));
  require(status);
  const icu::UnicodeString pattern =
      generator->getBestPattern(u"yMMMd", UDATPG_MATCH_ALL_FIELDS_LENGTH, status);
  require(status);
  format_ = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
  require(status);
  calendar_ = makeCalendar(locale);
}

std::string DateFormat::write(double localSeconds) {
  constexpr UDate millisecondsPerSecond = 1000;
  UErrorCode status = U_ZERO_ERROR;
  calendar_->setTime(localSeconds * millisecondsPerSecond, status);
  require(status);
  // Given a calendar, ICU uses it as it is; given a date, it copies its own one for each.
  icu::UnicodeString written;
  icu::FieldPosition unused;
  format_->format(*calendar_, written, unused);
  std::string utf8;
  return written.toUTF8String(utf8);
}

}  // namespace vemra::date
