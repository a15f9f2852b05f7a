// The user driver: keystrokes of characters, and the headless kit driven as a person would.
#include <cstring>

#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"
#include "ZARODatos/platform/Strings.h"
#include "ZARODatos/platform/UserDriver.h"

namespace OVT_ZARO {

UserDriver::Keystroke UserDriver::KeystrokeOf(char32_t ch) {
    Keystroke k;
    k.keyAscii = ch <= 0xFFFF ? static_cast<int16_t>(static_cast<uint16_t>(ch)) : 0;
    if (ch >= 'a' && ch <= 'z') {
        k.keyCode = static_cast<int16_t>(ch - 'a' + 'A');
    } else if (ch >= 'A' && ch <= 'Z') {
        k.keyCode = static_cast<int16_t>(ch);
        k.shift = vbShiftMask;
    } else if ((ch >= '0' && ch <= '9') || ch == ' ') {
        k.keyCode = static_cast<int16_t>(ch);
    } else if (ch < 0x80) {
        // The punctuation keys of a US keyboard: unshifted, then shifted.
        static const char plain[] = ";=,-./`[\\]'";
        static const char shifted[] = ":+<_>?~{|}\"";
        static const int16_t codes[] = {186, 187, 188, 189, 190, 191, 192, 219, 220, 221, 222};
        static const char digitShifted[] = ")!@#$%^&*(";
        if (const char* p = std::strchr(plain, static_cast<char>(ch)); p && ch) {
            k.keyCode = codes[p - plain];
        } else if (const char* q = std::strchr(shifted, static_cast<char>(ch)); q && ch) {
            k.keyCode = codes[q - shifted];
            k.shift = vbShiftMask;
        } else if (const char* d = std::strchr(digitShifted, static_cast<char>(ch)); d && ch) {
            k.keyCode = static_cast<int16_t>('0' + (d - digitShifted));
            k.shift = vbShiftMask;
        }
    }
    // Any other character (a letter with an accent ...) comes with no key code of its own.
    return k;
}

namespace {
Headless::HeadlessControl& Kit(const ControlRef& c) {
    auto* h = dynamic_cast<Headless::HeadlessControl*>(c.get());
    if (!h) RaisePlatform(ErrNum::MemberNotFound, "HeadlessUser");
    return *h;
}

Headless::MSFlexGrid& Grid(const ControlRef& c) {
    auto* g = dynamic_cast<Headless::MSFlexGrid*>(c.get());
    if (!g) RaisePlatform(ErrNum::MemberNotFound, "HeadlessUser");
    return *g;
}

// The middle of a cell of a grid, in twips from its corner.
void Middle(Headless::MSFlexGrid& g, int32_t row, int32_t col, float& x, float& y) {
    x = static_cast<float>(g.GetColPos(col)) + static_cast<float>(g.GetColWidth(col)) / 2;
    y = static_cast<float>(g.RowPos(row)) + static_cast<float>(g.GetRowHeight(row)) / 2;
}

// The key code, shift and character of a key pressed by itself.
int16_t CharacterOfKey(int16_t keyCode) {
    switch (keyCode) {
        case vbKeyReturn:
        case vbKeyEscape:
        case vbKeyBack:
        case vbKeySpace: return keyCode;
        default: return 0;
    }
}
}  // namespace

void HeadlessUser::ClickCell(const ControlRef& grid, int32_t row, int32_t col) {
    auto& g = Grid(grid);
    float x, y;
    Middle(g, row, col, x, y);
    g.UserClick(x, y);
}

void HeadlessUser::DoubleClickCell(const ControlRef& grid, int32_t row, int32_t col) {
    auto& g = Grid(grid);
    float x, y;
    Middle(g, row, col, x, y);
    g.UserDoubleClick(x, y);
}

void HeadlessUser::ClickHeader(const ControlRef& grid, int32_t col) { ClickCell(grid, 0, col); }

void HeadlessUser::ClickItem(const ControlRef& list, int32_t index) {
    auto* l = dynamic_cast<Headless::ListBox*>(list.get());
    if (!l) RaisePlatform(ErrNum::MemberNotFound, "HeadlessUser");
    l->UserClickItem(index);
}

void HeadlessUser::Click(const ControlRef& control) {
    auto& c = Kit(control);
    c.UserClick(static_cast<float>(c.GetWidth()) / 2, static_cast<float>(c.GetHeight()) / 2);
}

void HeadlessUser::DoubleClick(const ControlRef& control) {
    auto& c = Kit(control);
    c.UserDoubleClick(static_cast<float>(c.GetWidth()) / 2, static_cast<float>(c.GetHeight()) / 2);
}

void HeadlessUser::Type(const std::string& text) {
    for (char32_t ch : CodePoints(text)) {
        auto target = std::dynamic_pointer_cast<Headless::HeadlessControl>(form_->ActiveControl());
        if (!target) return;  // no control has the focus: the keys go nowhere
        const Keystroke k = KeystrokeOf(ch);
        // A character beyond 16 bits has no key value: it can not be typed.
        if (k.keyAscii == 0) continue;
        target->UserKey(k.keyCode, k.shift, k.keyAscii);
    }
}

void HeadlessUser::Press(int16_t keyCode, int16_t shift) {
    auto target = std::dynamic_pointer_cast<Headless::HeadlessControl>(form_->ActiveControl());
    if (!target) return;
    target->UserKey(keyCode, shift, CharacterOfKey(keyCode));
}

void HeadlessUser::PickDay(const ControlRef& monthView, Date day) {
    auto* m = dynamic_cast<Headless::MonthView*>(monthView.get());
    if (!m) RaisePlatform(ErrNum::MemberNotFound, "HeadlessUser");
    m->UserPickDay(day);
}

ControlRef HeadlessUser::Focused() { return form_->ActiveControl(); }

}  // namespace OVT_ZARO
