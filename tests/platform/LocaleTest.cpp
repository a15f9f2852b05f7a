// The host locale: the default settings, and a host's own settings taking
// effect in every conversion. Each test puts the locale back when it ends.
#include <gtest/gtest.h>


#include "PlatformTestSupport.h"
#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;
using OVT_ZARO::testing_support::LocaleGuard;
using OVT_ZARO::testing_support::Text;

namespace {
Date D(int y, int m, int d, int h = 0, int mi = 0, int s = 0) { return Date::FromParts(y, m, d, h, mi, s); }

HostLocale English() {
    HostLocale l;
    l.DecimalSeparator = '.';
    l.GroupSeparator = ',';
    l.ShortDate = "MM/dd/yyyy";
    l.LongTime = "h:mm:ss tt";
    l.CurrencySymbol = "$";
    return l;
}
}  // namespace

TEST(HostLocale, DefaultIsDecimalCommaAndDayFirst) {
    const HostLocale& l = HostLocale::Current();
    EXPECT_EQ(l.DecimalSeparator, ',');
    EXPECT_EQ(l.GroupSeparator, '.');
    EXPECT_EQ(l.ShortDate, "dd/mm/yyyy");
    EXPECT_EQ(l.LongTime, "H:mm:ss");
}

TEST(HostLocale, ChangeTakesEffectInNumberConversions) {
    LocaleGuard guard;
    HostLocale::Set(English());
    EXPECT_EQ(CStr(12.5), "12.5");
    EXPECT_EQ(CStr(1.234e16), "1.234E+16");
    EXPECT_EQ(CDbl("1,234.5"), 1234.5);
    EXPECT_EQ(CDbl("$5"), 5.0);
    EXPECT_TRUE(IsNumeric(".5"));
    EXPECT_FALSE(IsNumeric(",5"));
    EXPECT_EQ(CLng("2.5"), 2);
    EXPECT_EQ(Text(Format(1234.5, "#,##0.00")), "1,234.50");
}

TEST(HostLocale, ChangeTakesEffectInDateConversions) {
    LocaleGuard guard;
    HostLocale::Set(English());
    EXPECT_EQ(CStr(D(2024, 3, 15)), "03/15/2024");
    EXPECT_EQ(CStr(D(2024, 3, 15, 14, 7, 9)), "03/15/2024 2:07:09 PM");
    EXPECT_EQ(CStr(Date(0)), "12:00:00 AM");
    EXPECT_EQ(CDate("03/04/2024"), D(2024, 3, 4));
    // Month first is impossible here, so day first is tried.
    EXPECT_EQ(CDate("15/03/2024"), D(2024, 3, 15));
    EXPECT_EQ(CDate("03/15/2024 2:07:09 PM"), D(2024, 3, 15, 14, 7, 9));
}

TEST(HostLocale, TheDateSeparatorOfTheLocaleIsWrittenAndRead) {
    LocaleGuard guard;
    HostLocale l;
    l.ShortDate = "dd.MM.yyyy";
    l.LongTime = "HH.mm.ss";
    HostLocale::Set(l);
    EXPECT_EQ(CStr(D(2024, 3, 15)), "15.03.2024");
    EXPECT_EQ(Text(Format(D(2024, 3, 15, 9, 5), "dd/mm/yyyy hh:nn")), "15.03.2024 09.05");
    EXPECT_EQ(CDate("15.03.2024"), D(2024, 3, 15));
}

TEST(HostLocale, YearFirstShortDate) {
    LocaleGuard guard;
    HostLocale l;
    l.ShortDate = "yyyy-mm-dd";
    HostLocale::Set(l);
    EXPECT_EQ(CStr(D(2024, 3, 5)), "2024-03-05");
    EXPECT_EQ(CDate("24-03-05"), D(2024, 3, 5));
}

TEST(HostLocale, ValIgnoresTheLocale) {
    EXPECT_EQ(Val("12.5"), 12.5);
    LocaleGuard guard;
    HostLocale::Set(English());
    EXPECT_EQ(Val("12.5"), 12.5);
    EXPECT_EQ(Val("1,5"), 1.0);
}

TEST(HostLocale, ABadLocaleRaises5AndLeavesTheCurrentOne) {
    LocaleGuard guard;
    HostLocale same;
    same.GroupSeparator = ',';
    EXPECT_RAISES(HostLocale::Set(same), 5);
    HostLocale digit;
    digit.DecimalSeparator = '1';
    EXPECT_RAISES(HostLocale::Set(digit), 5);
    HostLocale noYear;
    noYear.ShortDate = "dd/mm";
    EXPECT_RAISES(HostLocale::Set(noYear), 5);
    EXPECT_EQ(HostLocale::Current().DecimalSeparator, ',');
    EXPECT_EQ(CStr(12.5), "12,5");
}

TEST(HostLocale, TheGuardRestoresTheDefault) {
    {
        LocaleGuard guard;
        HostLocale::Set(English());
        EXPECT_EQ(CStr(0.5), "0.5");
    }
    EXPECT_EQ(CStr(0.5), "0,5");
    EXPECT_EQ(HostLocale::Current().ShortDate, "dd/mm/yyyy");
}
