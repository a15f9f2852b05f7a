// UserDriver: what a person does at the screen, said in the terms of the
// control model, so that one scripted session runs on any kit: click a cell,
// double-click it, click a heading or a list item, type, press a key, pick a
// calendar day. Keys go to the control that has the focus, as they do on a
// screen. HeadlessUser drives the headless kit; a toolkit's kit brings its
// own driver (HeadlessUser is in HeadlessControls.h).
// Thread: the user-interface thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ZARODatos/platform/Controls.h"

namespace OVT_ZARO {

class UserDriver {
public:
    virtual ~UserDriver() = default;

    // A click, and a double click (a click first, as a grid delivers it), on
    // a cell of a grid (row and col from 0, fixed ones included).
    virtual void ClickCell(const ControlRef& grid, int32_t row, int32_t col) = 0;
    virtual void DoubleClickCell(const ControlRef& grid, int32_t row, int32_t col) = 0;
    // A click on the heading of column col (the fixed row).
    virtual void ClickHeader(const ControlRef& grid, int32_t col) = 0;
    // A click on item index (from 0) of a list box.
    virtual void ClickItem(const ControlRef& list, int32_t index) = 0;
    // A click, and a double click, in the middle of a control (a text box, say).
    virtual void Click(const ControlRef& control) = 0;
    virtual void DoubleClick(const ControlRef& control) = 0;
    // Types each character of a UTF-8 text into the control with the focus:
    // KeyDown, KeyPress (the character, unless a handler zeroes it), KeyUp.
    virtual void Type(const std::string& text) = 0;
    // Presses and releases one key on the control with the focus. Enter,
    // Escape, Backspace and Space also type their character.
    virtual void Press(int16_t keyCode, int16_t shift = 0) = 0;
    // Clicks a day on a month calendar.
    virtual void PickDay(const ControlRef& monthView, Date day) = 0;
    // The control with the focus, or no object.
    virtual ControlRef Focused() = 0;

    void Enter() { Press(vbKeyReturn); }
    void Escape() { Press(vbKeyEscape); }
    void F2() { Press(vbKeyF2); }
    void Backspace() { Press(vbKeyBack); }
    void Space() { Press(vbKeySpace); }
    void Left() { Press(vbKeyLeft); }
    void Right() { Press(vbKeyRight); }
    void Up() { Press(vbKeyUp); }
    void Down() { Press(vbKeyDown); }

    // The key code and shift state a character is typed with (a US keyboard:
    // letters by their capital, digits, the punctuation keys by their own
    // codes, shifted characters with Shift), and its KeyAscii: the character's
    // 16-bit code (above U+7FFF it reads as negative); 0 for a character beyond
    // U+FFFF, which can not be typed.
    struct Keystroke {
        int16_t keyCode = 0, shift = 0, keyAscii = 0;
    };
    static Keystroke KeystrokeOf(char32_t character);
};


}  // namespace OVT_ZARO
