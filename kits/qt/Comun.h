// What the Qt kit's sources share: the event bridge, key codes, colours and
// text conversions.
#pragma once

#include <QColor>
#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <QString>

#include <string>

#include "ZARODatosQt/QtControls.h"

namespace OVT_ZARO::QtKit {

// Translates the events of a control's widgets into the control's events.
class EventBridge : public QObject {
public:
    explicit EventBridge(QtControl& control) : control_(control) {}
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QtControl& control_;
    bool resending_ = false;     // a key sent again with a changed character
    bool afterDoubleClick_ = false;  // the release that ends a double click gives no Click
};

// The platform's key code of a Qt key event (13 Enter, 27 Escape, 37..40
// arrows, 113 F2, letters by their capital ...), its shift state, and the
// character it types as a 16-bit KeyAscii (0: none).
int16_t VbKeyCode(const QKeyEvent& e);
int16_t VbShift(Qt::KeyboardModifiers m);
int16_t VbKeyAscii(const QKeyEvent& e);
// The Qt key of a platform key code.
Qt::Key QtKeyOf(int16_t keyCode);

// 0x00BBGGRR and QColor.
inline QColor ColorOf(int32_t bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& s) { return s.toStdString(); }

// Raises 91 when the control's widget has gone with its form.
QWidget& Alive(QWidget* w, const QtControl& c);

}  // namespace OVT_ZARO::QtKit
