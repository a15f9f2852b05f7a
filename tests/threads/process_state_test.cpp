// The process-wide state under threads: the host locale set while another
// thread converts, and the screen services replaced while another thread
// uses the ones it took. Built also with ThreadSanitizer.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Screen.h"

using namespace OVT_ZARO;

namespace {

// Each conversion reads one whole snapshot, so every text is one of the two
// locales' forms.
TEST(HostLocaleThreads, SettingTheLocaleWhileAnotherThreadConvertsGivesOneWholeLocalePerConversion) {
    const HostLocale antes = HostLocale::Current();
    HostLocale punto;
    punto.DecimalSeparator = '.';
    punto.GroupSeparator = ',';
    std::atomic<bool> fin{false};
    std::atomic<int> malas{0}, hechas{0};
    std::thread lector([&] {
        while (!fin.load()) {
            const std::string t = CStr(Variant(1234.5));
            if (t != "1234,5" && t != "1234.5") ++malas;
            const double d = CDbl(Variant(std::string("2,5")));
            if (d != 2.5 && d != 25) ++malas;
            ++hechas;
        }
    });
    for (int i = 0; i < 2000; ++i) HostLocale::Set(i % 2 ? antes : punto);
    while (hechas.load() < 1000) std::this_thread::yield();
    fin = true;
    lector.join();
    HostLocale::Set(antes);
    EXPECT_EQ(malas.load(), 0);
}

// A thread that took the screen services keeps them alive and usable while
// the host replaces them; the next Screen() answers the new ones.
TEST(ScreenThreads, ServicesTakenByOneThreadStayAliveWhileAnotherReplacesThem) {
    auto primera = std::make_shared<ScreenServices>();
    SetScreen(primera);
    std::atomic<bool> tomada{false}, reemplazada{false};
    int beeps = 0;
    std::thread usuario([&] {
        std::shared_ptr<ScreenServices> s = Screen();
        tomada = true;
        while (!reemplazada.load()) std::this_thread::yield();
        s->Beep();
        s->Beep();
        beeps = s->Beeps();
    });
    while (!tomada.load()) std::this_thread::yield();
    std::weak_ptr<ScreenServices> vieja = primera;
    primera.reset();
    auto segunda = std::make_shared<ScreenServices>();
    SetScreen(segunda);
    reemplazada = true;
    usuario.join();
    EXPECT_EQ(beeps, 2);
    EXPECT_TRUE(vieja.expired());
    EXPECT_EQ(Screen(), segunda);
    EXPECT_EQ(segunda->Beeps(), 0);
    SetScreen(nullptr);
}

// Many threads asking for and replacing the services at once: every
// Screen() answers a live object.
TEST(ScreenThreads, AskingAndReplacingFromManyThreadsAlwaysAnswersLiveServices) {
    std::atomic<int> nulas{0};
    std::vector<std::thread> hilos;
    for (int h = 0; h < 4; ++h)
        hilos.emplace_back([&, h] {
            for (int i = 0; i < 500; ++i) {
                if (h % 2) SetScreen(i % 3 ? std::make_shared<ScreenServices>() : nullptr);
                else if (!Screen()) ++nulas;
                else Screen()->GetMousePointer();
            }
        });
    for (auto& t : hilos) t.join();
    SetScreen(nullptr);
    EXPECT_EQ(nulas.load(), 0);
}

}  // namespace
