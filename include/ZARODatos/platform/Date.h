// Date: a point in time as the platform's serial number.
//
// The serial is the count of days since 30 December 1899 as a double; its
// fraction is the time of day. 0 is the zero date, which stands for a
// missing date. Negative serials are days before 1899-12-30 (the fraction
// still counts forward from midnight, as the platform does).
#pragma once

#include <cstdint>

namespace OVT_ZARO {

struct DateParts {
    int Year = 1899, Month = 12, Day = 30;
    int Hour = 0, Minute = 0, Second = 0;
};

class Date {
public:
    constexpr Date() = default;
    constexpr explicit Date(double serial) : serial_(serial) {}

    // REQUIRES: a valid calendar date from year 100 to 9999 and a valid time.
    // An impossible date raises 5.
    static Date FromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    static bool IsValidDate(int year, int month, int day);

    // The calendar parts, the time rounded to the nearest second.
    DateParts Split() const;

    constexpr double Serial() const { return serial_; }
    constexpr bool IsZero() const { return serial_ == 0.0; }
    // The date part (whole days) and the time part (fraction of a day).
    double DatePart() const;
    double TimePart() const;

    friend constexpr bool operator==(Date a, Date b) { return a.serial_ == b.serial_; }

private:
    double serial_ = 0.0;
};

// The zero date, 30 December 1899.
inline constexpr Date ZeroDate{};

// Today's date (no time part) and the present moment, by the local clock.
Date Today();
Date Now();

}  // namespace OVT_ZARO
