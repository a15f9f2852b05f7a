// Date: calendar parts <-> serial number (days since 1899-12-30).
#include "ZARODatos/platform/Date.h"

#include <cmath>
#include <ctime>

#include "ZARODatos/platform/Error.h"
#include "platform/DateMath.h"

namespace OVT_ZARO {

namespace datemath {

int64_t DaysFromCivil(int64_t y, int m, int d) {
    // Proleptic Gregorian calendar, days relative to 1970-01-01.
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(int64_t z, int& year, int& month, int& day) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    year = static_cast<int>(yoe + era * 400 + (month <= 2));
}

namespace {
// 1899-12-30 relative to 1970-01-01.
const int64_t kEpochOffset = DaysFromCivil(1899, 12, 30);
}  // namespace

int64_t SerialDayFromCivil(int year, int month, int day) { return DaysFromCivil(year, month, day) - kEpochOffset; }

void CivilFromSerialDay(int64_t serialDay, int& year, int& month, int& day) {
    CivilFromDays(serialDay + kEpochOffset, year, month, day);
}

bool IsLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(int y, int m) {
    static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (m < 1 || m > 12) return 0;
    return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

double SerialFromDayAndTime(int64_t serialDay, double timeFraction) {
    // Before the zero date the fraction still counts forward from midnight,
    // so it is subtracted from the (negative) day number.
    const double day = static_cast<double>(serialDay);
    return serialDay < 0 ? day - timeFraction : day + timeFraction;
}

bool SerialInRange(double serial) { return std::isfinite(serial) && serial > kMinSerial - 1 && serial < kMaxSerial + 1; }

bool SplitSerial(double serial, DateParts& out) {
    if (!SerialInRange(serial)) return false;
    double whole = std::trunc(serial);
    double frac = std::fabs(serial - whole);
    auto day = static_cast<int64_t>(whole);
    auto seconds = static_cast<int64_t>(std::llround(frac * 86400.0));
    if (seconds >= 86400) {
        // The time rounds up to the next midnight: one day forward.
        seconds -= 86400;
        day += 1;
    }
    if (day < static_cast<int64_t>(kMinSerial) || day > static_cast<int64_t>(kMaxSerial)) return false;
    CivilFromSerialDay(day, out.Year, out.Month, out.Day);
    out.Hour = static_cast<int>(seconds / 3600);
    out.Minute = static_cast<int>(seconds / 60 % 60);
    out.Second = static_cast<int>(seconds % 60);
    return true;
}

}  // namespace datemath

bool Date::IsValidDate(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
    return day <= datemath::DaysInMonth(year, month);
}

Date Date::FromParts(int year, int month, int day, int hour, int minute, int second) {
    if (!IsValidDate(year, month, day) || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 ||
        second > 59)
        RaisePlatform(ErrNum::InvalidCall);
    const int64_t serialDay = datemath::SerialDayFromCivil(year, month, day);
    const double fraction = (hour * 3600 + minute * 60 + second) / 86400.0;
    return Date(datemath::SerialFromDayAndTime(serialDay, fraction));
}

DateParts Date::Split() const {
    DateParts parts;
    // A serial outside 1 January 100 .. 31 December 9999 (or not a number)
    // names no calendar day: it overflows, as a date conversion would.
    if (!datemath::SplitSerial(serial_, parts)) RaisePlatform(ErrNum::Overflow);
    return parts;
}

double Date::DatePart() const { return std::trunc(serial_); }

double Date::TimePart() const { return std::fabs(serial_ - std::trunc(serial_)); }

Date Now() {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return Date::FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                           local.tm_sec);
}

Date Today() { return Date(std::floor(Now().Serial())); }

}  // namespace OVT_ZARO
