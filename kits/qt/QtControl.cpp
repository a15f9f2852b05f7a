// The base of the kit's controls, the form, the event bridge and the screen services.
#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QFont>
#include <QMouseEvent>
#include <QWidget>
#include <cmath>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

QWidget& Alive(QWidget* w, const QtControl& c) {
    if (!w) throw Error(ErrNum::ObjectNotSet, c.TypeName(), "The control's widget has gone with its form");
    return *w;
}

// ---- Key codes -------------------------------------------------------------------------

int16_t VbKeyCode(const QKeyEvent& e) {
    const int k = e.key();
    switch (k) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return vbKeyReturn;
        case Qt::Key_Escape: return vbKeyEscape;
        case Qt::Key_Backspace: return vbKeyBack;
        case Qt::Key_Tab: return vbKeyTab;
        case Qt::Key_Space: return vbKeySpace;
        case Qt::Key_PageUp: return vbKeyPageUp;
        case Qt::Key_PageDown: return vbKeyPageDown;
        case Qt::Key_End: return vbKeyEnd;
        case Qt::Key_Home: return vbKeyHome;
        case Qt::Key_Left: return vbKeyLeft;
        case Qt::Key_Up: return vbKeyUp;
        case Qt::Key_Right: return vbKeyRight;
        case Qt::Key_Down: return vbKeyDown;
        case Qt::Key_Insert: return vbKeyInsert;
        case Qt::Key_Delete: return vbKeyDelete;
        default: break;
    }
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return static_cast<int16_t>(112 + (k - Qt::Key_F1));
    const QString t = e.text();
    if (!t.isEmpty()) return UserDriver::KeystrokeOf(t.at(0).unicode()).keyCode;
    if (k >= Qt::Key_A && k <= Qt::Key_Z) return static_cast<int16_t>(k);
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return static_cast<int16_t>(k);
    return 0;
}

int16_t VbShift(Qt::KeyboardModifiers m) {
    int16_t s = 0;
    if (m & Qt::ShiftModifier) s |= vbShiftMask;
    if (m & Qt::ControlModifier) s |= vbCtrlMask;
    if (m & Qt::AltModifier) s |= 4;
    return s;
}

int16_t VbKeyAscii(const QKeyEvent& e) {
    switch (e.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return vbKeyReturn;
        case Qt::Key_Escape: return vbKeyEscape;
        case Qt::Key_Backspace: return vbKeyBack;
        default: break;
    }
    const QString t = e.text();
    if (t.isEmpty() || t.at(0).unicode() < 32) return 0;
    return static_cast<int16_t>(t.at(0).unicode());
}

Qt::Key QtKeyOf(int16_t keyCode) {
    switch (keyCode) {
        case vbKeyReturn: return Qt::Key_Return;
        case vbKeyEscape: return Qt::Key_Escape;
        case vbKeyBack: return Qt::Key_Backspace;
        case vbKeyTab: return Qt::Key_Tab;
        case vbKeySpace: return Qt::Key_Space;
        case vbKeyPageUp: return Qt::Key_PageUp;
        case vbKeyPageDown: return Qt::Key_PageDown;
        case vbKeyEnd: return Qt::Key_End;
        case vbKeyHome: return Qt::Key_Home;
        case vbKeyLeft: return Qt::Key_Left;
        case vbKeyUp: return Qt::Key_Up;
        case vbKeyRight: return Qt::Key_Right;
        case vbKeyDown: return Qt::Key_Down;
        case vbKeyInsert: return Qt::Key_Insert;
        case vbKeyDelete: return Qt::Key_Delete;
        default: break;
    }
    if (keyCode >= 112 && keyCode <= 135) return static_cast<Qt::Key>(Qt::Key_F1 + (keyCode - 112));
    return static_cast<Qt::Key>(keyCode);  // letters and digits share their codes
}

// ---- The event bridge --------------------------------------------------------------------

bool EventBridge::eventFilter(QObject* watched, QEvent* event) {
    QtControl& c = control_;
    switch (event->type()) {
        case QEvent::FocusIn:
            c.GotFocus.Raise();
            return false;
        case QEvent::FocusOut:
            c.LostFocus.Raise();
            return false;
        case QEvent::KeyPress: {
            if (resending_) return false;
            auto* e = static_cast<QKeyEvent*>(event);
            int16_t code = VbKeyCode(*e), shift = VbShift(e->modifiers());
            c.KeyDown.Raise(code, shift);
            const bool handled = c.OnKeyDown(code, shift);
            const int16_t original = VbKeyAscii(*e);
            if (original != 0) {
                int16_t ascii = original;
                c.KeyPress.Raise(ascii);
                if (c.SwallowsCharacters() || ascii == 0) return true;
                if (ascii != original) {
                    // The character a handler put in its place reaches the widget instead.
                    const QString text(QChar(static_cast<char16_t>(static_cast<uint16_t>(ascii))));
                    QKeyEvent changed(QEvent::KeyPress, QtKeyOf(UserDriver::KeystrokeOf(static_cast<uint16_t>(ascii)).keyCode),
                                   e->modifiers(), text);
                    resending_ = true;
                    QCoreApplication::sendEvent(watched, &changed);
                    resending_ = false;
                    return true;
                }
            }
            return handled;
        }
        case QEvent::KeyRelease: {
            auto* e = static_cast<QKeyEvent*>(event);
            if (e->isAutoRepeat()) return c.SwallowsCharacters();
            int16_t code = VbKeyCode(*e), shift = VbShift(e->modifiers());
            c.KeyUp.Raise(code, shift);
            return c.SwallowsCharacters();
        }
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: {
            auto* e = static_cast<QMouseEvent*>(event);
            if (e->button() != Qt::LeftButton) return c.SwallowsMouse();
            QWidget& w = Alive(c.Widget(), c);
            const QPoint inControl = static_cast<QWidget*>(watched)->mapTo(&w, e->position().toPoint());
            int16_t button = vbLeftButton, shift = VbShift(e->modifiers());
            float x = static_cast<float>(c.TwipsX(inControl.x())), y = static_cast<float>(c.TwipsY(inControl.y()));
            if (event->type() == QEvent::MouseButtonPress) {
                afterDoubleClick_ = false;
                c.MouseDown.Raise(button, shift, x, y);
                const QPoint inSource = e->position().toPoint();
                c.OnMouseDown(inSource.x(), inSource.y());
            } else if (event->type() == QEvent::MouseButtonDblClick) {
                afterDoubleClick_ = true;
                c.DblClick.Raise();
            } else {
                c.MouseUp.Raise(button, shift, x, y);
                if (!afterDoubleClick_) c.Click.Raise();
                afterDoubleClick_ = false;
            }
            return c.SwallowsMouse();
        }
        default:
            return false;
    }
}

// ---- The base control --------------------------------------------------------------------

QtControl::QtControl() = default;

QtControl::~QtControl() {
    if (widget_ && bridge_)
        for (QWidget* w : EventSources()) w->removeEventFilter(bridge_.get());
}

void QtControl::Adopt(QWidget* widget, const std::string& name, const std::shared_ptr<Form>& form) {
    widget_ = widget;
    name_ = name;
    form_ = form;
    bridge_ = std::make_unique<EventBridge>(*this);
    // The widget goes with its form; the control may outlive it and then raises 91.
    QObject::connect(widget, &QObject::destroyed, bridge_.get(), [this] { widget_ = nullptr; });
    for (QWidget* w : EventSources()) w->installEventFilter(bridge_.get());
}

std::vector<QWidget*> QtControl::EventSources() { return {widget_}; }

ControlRef QtControl::GetParent() { return form_.lock(); }
bool QtControl::GetVisible() { return !Alive(widget_, *this).isHidden(); }

void QtControl::SetVisible(bool visible) {
    QWidget& w = Alive(widget_, *this);
    if (visible) w.raise();  // an overlay lies over the grid it edits
    w.setVisible(visible);
}

int32_t QtControl::PxX(int32_t twips) const {
    return static_cast<int32_t>(std::lround(twips * Alive(widget_, *this).logicalDpiX() / double(TwipsPerInch)));
}
int32_t QtControl::PxY(int32_t twips) const {
    return static_cast<int32_t>(std::lround(twips * Alive(widget_, *this).logicalDpiY() / double(TwipsPerInch)));
}
int32_t QtControl::TwipsX(int32_t px) const {
    return static_cast<int32_t>(std::lround(px * double(TwipsPerInch) / Alive(widget_, *this).logicalDpiX()));
}
int32_t QtControl::TwipsY(int32_t px) const {
    return static_cast<int32_t>(std::lround(px * double(TwipsPerInch) / Alive(widget_, *this).logicalDpiY()));
}

int32_t QtControl::GetLeft() { return TwipsX(Alive(widget_, *this).x()); }
void QtControl::SetLeft(int32_t v) { Alive(widget_, *this).move(PxX(v), widget_->y()); }
int32_t QtControl::GetTop() { return TwipsY(Alive(widget_, *this).y()); }
void QtControl::SetTop(int32_t v) { Alive(widget_, *this).move(widget_->x(), PxY(v)); }
int32_t QtControl::GetWidth() { return TwipsX(Alive(widget_, *this).width()); }
void QtControl::SetWidth(int32_t v) { Alive(widget_, *this).resize(std::max(0, PxX(v)), widget_->height()); }
int32_t QtControl::GetHeight() { return TwipsY(Alive(widget_, *this).height()); }
void QtControl::SetHeight(int32_t v) { Alive(widget_, *this).resize(widget_->width(), std::max(0, PxY(v))); }

void QtControl::SetFocus() {
    QWidget& w = Alive(widget_, *this);
    if (w.isHidden()) RaisePlatform(ErrNum::InvalidCall, TypeName() + ".SetFocus");
    w.setFocus(Qt::OtherFocusReason);
}

double QtControl::GetFontSize() { return Alive(widget_, *this).font().pointSizeF(); }

void QtControl::SetFontSize(double v) {
    QFont f = Alive(widget_, *this).font();
    if (v > 0) f.setPointSizeF(v);
    widget_->setFont(f);
}

bool QtControl::GetTabStop() { return (Alive(widget_, *this).focusPolicy() & Qt::TabFocus) != 0; }

void QtControl::SetTabStop(bool v) { Alive(widget_, *this).setFocusPolicy(v ? Qt::StrongFocus : Qt::ClickFocus); }

// ---- The form ----------------------------------------------------------------------------

Form::Form(std::string name) : name_(std::move(name)) {}

std::shared_ptr<Form> Form::Create(const std::string& name, int widthTwips, int heightTwips) {
    auto f = std::shared_ptr<Form>(new Form(name));
    f->widget_ = new QWidget();
    f->guard_ = std::make_unique<QObject>();
    Form* self = f.get();
    QObject::connect(f->widget_, &QObject::destroyed, f->guard_.get(), [self] { self->widget_ = nullptr; });
    f->widget_->setObjectName(Q(name));
    f->widget_->setWindowTitle(Q(name));
    const double dpiX = f->widget_->logicalDpiX(), dpiY = f->widget_->logicalDpiY();
    f->widget_->resize(static_cast<int>(std::lround(widthTwips * dpiX / TwipsPerInch)),
                       static_cast<int>(std::lround(heightTwips * dpiY / TwipsPerInch)));
    return f;
}

Form::~Form() {
    Unload();
    // A widget put inside another one belongs to it.
    if (widget_ && !widget_->parent()) delete widget_;
    guard_.reset();
}

void Form::Adopt(const std::shared_ptr<QtControl>& c, const std::string& name) {
    QWidget* w = c->MakeWidget(widget_);
    w->setObjectName(Q(name));
    c->Adopt(w, name, std::static_pointer_cast<Form>(shared_from_this()));
    c->Prepare();
    controls_.push_back(c);
}

ControlRef Form::Controls(const std::string& name) {
    for (const auto& c : controls_)
        if (TextEquals(c->GetName(), name)) return c;
    RaisePlatform(ErrNum::ControlNotFound, "Form.Controls");
}

void Form::Unload() {
    for (const auto& c : controls_) c->DetachAllHandlers();
    DetachAllHandlers();
    for (const auto& c : controls_) c->form_.reset();
    controls_.clear();
}

void Form::Show() {
    if (!widget_) return;
    QWidget* window = widget_->window();
    window->show();
    window->activateWindow();
    QApplication::setActiveWindow(window);
    QCoreApplication::processEvents();
}

bool Form::GetVisible() { return widget_ && widget_->isVisible(); }

// ---- Screen services -------------------------------------------------------------------

void QtScreen::SetMousePointer(int shape) {
    const bool before = GetMousePointer() == vbHourglass;
    ScreenServices::SetMousePointer(shape);
    const bool now = shape == vbHourglass;
    if (now && !before) QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    if (!now && before) QApplication::restoreOverrideCursor();
}

void QtScreen::DoEvents() {
    ScreenServices::DoEvents();
    // Qt's pending events, at most every 20 ms: a load yields after every row,
    // and the screen repaints as often as a person can see it, not per row.
    static QElapsedTimer since;
    if (!since.isValid() || since.elapsed() >= 20) {
        QCoreApplication::processEvents();
        since.restart();
    }
}

void QtScreen::Beep() {
    ScreenServices::Beep();
    QApplication::beep();
}

}  // namespace OVT_ZARO::QtKit
