// The members every headless control has, and the form that owns them.
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"

namespace OVT_ZARO::Headless {

ControlRef HeadlessControl::GetParent() { return form_.lock(); }

bool HeadlessControl::HasFocus() const {
    auto f = form_.lock();
    return f && f->focused_.lock().get() == this;
}

void HeadlessControl::SetVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    if (!visible && HasFocus()) form_.lock()->FocusLost(*this);
}

void HeadlessControl::SetFocus() {
    if (!visible_) RaisePlatform(ErrNum::InvalidCall, TypeName() + ".SetFocus");
    auto f = form_.lock();
    if (!f) return;  // outside a form there is no focus to move
    f->MoveFocus(std::static_pointer_cast<HeadlessControl>(shared_from_this()));
}

void HeadlessControl::UserKey(int16_t keyCode, int16_t shift, int16_t keyAscii) {
    KeyDown.Raise(keyCode, shift);
    if (keyCode != 0) OnKeyDown(keyCode, shift);
    if (keyAscii != 0) {
        KeyPress.Raise(keyAscii);
        if (keyAscii != 0) OnCharacter(keyAscii);
    }
    KeyUp.Raise(keyCode, shift);
}

void HeadlessControl::Press(float x, float y) {
    if (form_.lock() && visible_ && !HasFocus()) SetFocus();
    int16_t button = vbLeftButton, shift = 0;
    MouseDown.Raise(button, shift, x, y);
    OnMouseDown(x, y);
}

void HeadlessControl::UserClick(float x, float y) {
    Press(x, y);
    int16_t button = vbLeftButton, shift = 0;
    MouseUp.Raise(button, shift, x, y);
    Click.Raise();
}

void HeadlessControl::UserDoubleClick(float x, float y) {
    // MouseDown, MouseUp, Click, DblClick, MouseUp: the second press gives no MouseDown of its own.
    UserClick(x, y);
    int16_t button = vbLeftButton, shift = 0;
    DblClick.Raise();
    MouseUp.Raise(button, shift, x, y);
}

std::shared_ptr<Form> Form::Create(const std::string& name) { return std::shared_ptr<Form>(new Form(name)); }

Form::~Form() { Unload(); }

void Form::Adopt(const std::shared_ptr<HeadlessControl>& c, const std::string& name) {
    c->name_ = name;
    c->form_ = std::static_pointer_cast<Form>(shared_from_this());
    controls_.push_back(c);
}

ControlRef Form::Controls(const std::string& name) {
    for (const auto& c : controls_)
        if (TextEquals(c->name_, name)) return c;
    RaisePlatform(ErrNum::ControlNotFound, "Form.Controls");
}

void Form::Unload() {
    // Handlers may hold controls: dropping them first lets every control go.
    for (const auto& c : controls_) c->DetachAllHandlers();
    DetachAllHandlers();
    focused_.reset();
    for (const auto& c : controls_) c->form_.reset();
    controls_.clear();
}

void Form::MoveFocus(const std::shared_ptr<HeadlessControl>& to) {
    auto from = focused_.lock();
    if (from == to) return;
    focused_ = to;
    if (from) from->LostFocus.Raise();
    // A LostFocus handler may have moved the focus on: GotFocus only if it stayed.
    if (focused_.lock() == to) to->GotFocus.Raise();
}

void Form::FocusLost(HeadlessControl& from) {
    focused_.reset();
    from.LostFocus.Raise();
}

}  // namespace OVT_ZARO::Headless
