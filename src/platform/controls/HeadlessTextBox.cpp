// The headless text box and month calendar.
#include <algorithm>

#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"
#include "ZARODatos/platform/Strings.h"

namespace OVT_ZARO::Headless {

void TextBox::SetText(const std::string& text) {
    text_ = text;
    selStart_ = 0;
    selLength_ = 0;
}

void TextBox::SetSelStart(int32_t start) {
    if (start < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".SelStart");
    selStart_ = std::min(start, Len(text_));
    selLength_ = 0;
}

void TextBox::SetSelLength(int32_t length) {
    if (length < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".SelLength");
    selLength_ = std::min(length, Len(text_) - selStart_);
}

void TextBox::Replace(int32_t from, int32_t length, const std::string& with) {
    text_ = Mid(text_, 1, from) + with + Mid(text_, from + length + 1);
    selStart_ = from + Len(with);
    selLength_ = 0;
}

void TextBox::OnKeyDown(int16_t keyCode, int16_t) {
    const int32_t len = Len(text_);
    switch (keyCode) {
        case vbKeyLeft:
            selStart_ = selLength_ > 0 ? selStart_ : std::max(0, selStart_ - 1);
            selLength_ = 0;
            break;
        case vbKeyRight:
            selStart_ = selLength_ > 0 ? selStart_ + selLength_ : std::min(len, selStart_ + 1);
            selLength_ = 0;
            break;
        case vbKeyHome:
            selStart_ = 0;
            selLength_ = 0;
            break;
        case vbKeyEnd:
            selStart_ = len;
            selLength_ = 0;
            break;
        case vbKeyDelete:
            if (selLength_ > 0) Replace(selStart_, selLength_, {});
            else if (selStart_ < len) Replace(selStart_, 1, {});
            break;
        default:
            break;
    }
}

void TextBox::OnCharacter(int16_t keyAscii) {
    if (keyAscii == vbKeyBack) {
        if (selLength_ > 0) Replace(selStart_, selLength_, {});
        else if (selStart_ > 0) Replace(selStart_ - 1, 1, {});
        return;
    }
    // A single line: Enter, Escape, Tab and the other control characters type nothing.
    if (keyAscii >= 0 && keyAscii < 32) return;
    Replace(selStart_, selLength_, Chr(keyAscii));
}

MonthView::MonthView() : value_(Today()) {
    SetWidth(2880);
    SetHeight(2430);
}

void MonthView::UserPickDay(Date day) {
    if (GetParent() && GetVisible() && !HasFocus()) SetFocus();
    int16_t button = vbLeftButton, shift = 0;
    float x = 0, y = 0;
    MouseDown.Raise(button, shift, x, y);
    value_ = day;
    DateClick.Raise(day);
    MouseUp.Raise(button, shift, x, y);
}

}  // namespace OVT_ZARO::Headless
