// Calendar arithmetic shared by the date conversions (internal).
#pragma once

#include <cstdint>

#include "ZARODatos/platform/Date.h"

namespace OVT_ZARO::datemath {

// Serials of 1 January 100 and 31 December 9999: the range of the platform's dates.
inline constexpr double kMinSerial = -657434.0;
inline constexpr double kMaxSerial = 2958465.0;

int64_t DaysFromCivil(int64_t y, int m, int d);
void CivilFromDays(int64_t z, int& year, int& month, int& day);
// Whole days since 1899-12-30 of a calendar day, and back.
int64_t SerialDayFromCivil(int year, int month, int day);
void CivilFromSerialDay(int64_t serialDay, int& year, int& month, int& day);
bool IsLeapYear(int y);
// 0 for a month outside 1..12.
int DaysInMonth(int y, int m);
// The serial of a day plus a time of day (fraction 0 <= f < 1).
double SerialFromDayAndTime(int64_t serialDay, double timeFraction);
// True for a finite serial inside the platform's date range.
bool SerialInRange(double serial);
// The parts of a serial, time rounded to the second; false outside the range.
bool SplitSerial(double serial, DateParts& out);

}  // namespace OVT_ZARO::datemath
