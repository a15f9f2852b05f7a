// The picture strip, the screen services, and the platform's string functions.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Pictures.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/platform/Strings.h"

using namespace OVT_ZARO;

namespace {

TEST(PictureStrip, HoldsTenPicturesUnderTheirKeysInOrder) {
    const char* keys[] = {"checked", "unchecked", "lupa", "star", "edit",
                          "calendar", "add", "delete", "atencion", "printer"};
    ASSERT_EQ(Form1().Count(), 10);
    for (int i = 0; i < 10; ++i) {
        const PictureRef& p = Form1().ListImage(i + 1);
        EXPECT_EQ(p->Key(), keys[i]);
        EXPECT_EQ(p->Width(), 16) << keys[i];
        EXPECT_EQ(p->Height(), std::string(keys[i]) == "printer" ? 15 : 16) << keys[i];
        EXPECT_GT(p->Png().size(), 24u);
        EXPECT_EQ(Form1().Imagen(keys[i]), p);
    }
}

TEST(PictureStrip, AKeyInCapitalsGivesTheSamePicture) {
    EXPECT_EQ(Form1().Imagen("CHECKED"), Form1().Imagen("checked"));
    EXPECT_EQ(Form1().Imagen("Atencion"), Form1().Imagen("atencion"));
    EXPECT_NE(Form1().Imagen("checked"), nullptr);
}

TEST(PictureStrip, AnUnknownKeyGivesNoPictureAndNoError) {
    EXPECT_EQ(Form1().Imagen("nada"), nullptr);
    EXPECT_EQ(Form1().Imagen(""), nullptr);
    EXPECT_EQ(Form1().Imagen(Variant::Null()), nullptr);
    EXPECT_EQ(Form1().Imagen(Variant(int32_t{1})), nullptr);
    EXPECT_EQ(Form1().Imagen(Variant()), nullptr);
}

TEST(PictureStrip, IsOneFormForTheWholeProcess) {
    EXPECT_EQ(&Form1(), &Form1());
    EXPECT_EQ(Form1().Imagen("star"), Form1().Imagen("star"));
}

TEST(ScreenServices, TheHeadlessScreenRecordsThePointerDoEventsAndBeeps) {
    SetScreen(nullptr);
    ScreenServices& s = *Screen();
    s.SetMousePointer(vbHourglass);
    s.DoEvents();
    s.DoEvents();
    s.Beep();
    EXPECT_EQ(s.GetMousePointer(), 11);
    EXPECT_EQ(s.PointerChanges(), 1);
    EXPECT_EQ(s.DoEventsCalls(), 2);
    EXPECT_EQ(s.Beeps(), 1);
    SetScreen(nullptr);
    EXPECT_EQ(Screen()->GetMousePointer(), 0);
}

TEST(ScreenServices, AHostReplacesThem) {
    struct HostScreen : ScreenServices {
        int beeps = 0;
        void Beep() override { ++beeps; }
    };
    auto host = std::make_shared<HostScreen>();
    SetScreen(host);
    Screen()->Beep();
    EXPECT_EQ(host->beeps, 1);
    SetScreen(nullptr);
}

TEST(Strings, CountCharactersNotBytes) {
    EXPECT_EQ(Len("añoé"), 4);
    EXPECT_EQ(Mid("añoé", 2, 2), "ño");
    EXPECT_EQ(Mid("añoé", 3), "oé");
    EXPECT_EQ(Mid("abc", 5), "");
    EXPECT_EQ(InStr("12,34", ","), 3);
    EXPECT_EQ(InStr("Señor BOCADILLO", "bocad"), 7);
    EXPECT_EQ(InStr("abc", "x"), 0);
    EXPECT_EQ(InStr("abc", ""), 1);
    EXPECT_EQ(Replace("1.234.5", ".", ","), "1,234,5");
    EXPECT_EQ(Chr(241), "ñ");
    EXPECT_EQ(Chr(static_cast<int16_t>(0xAC00)), "\xEA\xB0\x80");
    EXPECT_EQ(CodePoints("añ"), std::u32string(U"añ"));
    EXPECT_EQ(Utf8Of(U'€'), "\xE2\x82\xAC");
    EXPECT_EQ(Len("\xFF" "a"), 2);  // an invalid byte counts as one character
}

}  // namespace
