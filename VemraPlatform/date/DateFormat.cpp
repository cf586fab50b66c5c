#include "VemraPlatform/date/DateFormat.hpp"

#include "VemraPlatform/date/LocaleIdentifier.hpp"

#include <new>
#include <stdexcept>

#include <unicode/dtfmtsym.h>
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

/// The calendar that the locale names, else the first one in use in its region.
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

/// The locale with its calendar and its digits, but without other keywords: they could make its
/// name longer than ICU's pattern generator accepts.
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
  // The caller passes local time, so the calendar's own zone must be UTC.
  std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(*icu::TimeZone::getGMT(), locale, status));
  require(status);
  // By default ICU uses the Julian calendar before 15 October 1582, also in the calendars that it
  // derives from the Gregorian one. This moves the change to about 30,000 years ago.
  constexpr UDate longAgo = -1e15;
  if (auto* gregorian = dynamic_cast<icu::GregorianCalendar*>(calendar.get())) {
    gregorian->setGregorianChange(longAgo, status);
    require(status);
  }
  return calendar;
}

/// The calendar of ISO 8601 is the Gregorian one, and its months have the same names: ICU 78 has
/// none for it, and would leave the month out.
void nameMonths(icu::SimpleDateFormat& format, icu::Locale locale) {
  UErrorCode status = U_ZERO_ERROR;
  if (locale.getKeywordValue<std::string>("calendar", status) != "iso8601") return;
  locale.setKeywordValue("calendar", "gregorian", status);
  format.setDateFormatSymbols(icu::DateFormatSymbols(locale, status));
  require(status);
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
  // From char16_t, ICU 78 would take a string view of the standard library that it was compiled
  // with.
  const icu::UnicodeString skeleton("yMMMd", -1, US_INV);
  const icu::UnicodeString pattern =
      generator->getBestPattern(skeleton, UDATPG_MATCH_ALL_FIELDS_LENGTH, status);
  require(status);
  format_ = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
  require(status);
  nameMonths(*format_, locale);
  calendar_ = makeCalendar(locale);
}

std::string DateFormat::write(double localSeconds) {
  constexpr UDate millisecondsPerSecond = 1000;
  UErrorCode status = U_ZERO_ERROR;
  calendar_->setTime(localSeconds * millisecondsPerSecond, status);
  require(status);
  // ICU uses a given calendar as it is; for a given date it would copy its own calendar each time.
  icu::UnicodeString written;
  icu::FieldPosition unused;
  format_->format(*calendar_, written, unused);
  std::string utf8;
  return written.toUTF8String(utf8);
}

}  // namespace vemra::date
