// The user driver of the Qt kit: QTest's mouse and keys on the widgets.
#include <QApplication>
#include <QCalendarWidget>
#include <QListWidget>
#include <QMouseEvent>
#include <QTableView>
#include <QTableWidget>
#include <QTest>

#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Strings.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

namespace {
QtControl& Kit(const ControlRef& c) {
    auto* k = dynamic_cast<QtControl*>(c.get());
    if (!k) RaisePlatform(ErrNum::MemberNotFound, "QtUser");
    return *k;
}

// A double click as a person gives it: press, release, the second press as a double click, release.
void DoubleClickAt(QWidget* w, QPoint p) {
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, p);
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, p);
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, p, w->mapToGlobal(p), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &doubleClick);
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, p);
}

// The middle of a cell of a grid or a spread, in its viewport.
QPoint CellCentre(QtControl& c, int32_t row, int32_t col, QWidget*& viewport) {
    if (auto* g = dynamic_cast<MSFlexGrid*>(&c)) {
        int x, y, w, h;
        g->CellRect(row, col, x, y, w, h);
        viewport = g->Table()->viewport();
        return {x + w / 2, y + h / 2};
    }
    if (auto* s = dynamic_cast<fpSpread*>(&c)) {
        QTableWidget* t = s->Table();
        viewport = t->viewport();
        return {t->columnViewportPosition(col) + t->columnWidth(col) / 2,
                t->rowViewportPosition(row) + t->rowHeight(row) / 2};
    }
    RaisePlatform(ErrNum::MemberNotFound, "QtUser");
}

QWidget* FocusWidget() { return QApplication::focusWidget(); }
}  // namespace

void QtUser::ClickCell(const ControlRef& grid, int32_t row, int32_t col) {
    QWidget* viewport = nullptr;
    const QPoint p = CellCentre(Kit(grid), row, col, viewport);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, p);
}

void QtUser::DoubleClickCell(const ControlRef& grid, int32_t row, int32_t col) {
    QWidget* viewport = nullptr;
    const QPoint p = CellCentre(Kit(grid), row, col, viewport);
    DoubleClickAt(viewport, p);
}

void QtUser::ClickHeader(const ControlRef& grid, int32_t col) { ClickCell(grid, 0, col); }

void QtUser::ClickItem(const ControlRef& list, int32_t index) {
    auto* l = dynamic_cast<ListBox*>(list.get());
    if (!l) RaisePlatform(ErrNum::MemberNotFound, "QtUser");
    QListWidget* w = l->List();
    if (index < 0 || index >= w->count()) RaisePlatform(ErrNum::InvalidPropertyIndex, "QtUser");
    w->scrollToItem(w->item(index));
    QTest::mouseClick(w->viewport(), Qt::LeftButton, Qt::NoModifier, w->visualItemRect(w->item(index)).center());
}

void QtUser::Click(const ControlRef& control) {
    QWidget* w = Kit(control).Widget();
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
}

void QtUser::DoubleClick(const ControlRef& control) {
    QWidget* w = Kit(control).Widget();
    DoubleClickAt(w, w->rect().center());
}

void QtUser::Type(const std::string& text) {
    for (char32_t ch : CodePoints(text)) {
        QWidget* w = FocusWidget();
        if (!w) return;  // no widget has the focus: the keys go nowhere
        if (ch > 0xFFFF) continue;  // beyond a 16-bit key value: it can not be typed
        const Keystroke k = KeystrokeOf(ch);
        const QString text(QChar(static_cast<char16_t>(ch)));
        Qt::KeyboardModifiers m = (k.shift & vbShiftMask) ? Qt::ShiftModifier : Qt::NoModifier;
        const Qt::Key key = (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9')
                                  ? QtKeyOf(k.keyCode)
                                  : static_cast<Qt::Key>(QChar(static_cast<char16_t>(ch)).toUpper().unicode());
        QKeyEvent press(QEvent::KeyPress, key, m, text);
        QApplication::sendEvent(w, &press);
        QKeyEvent release(QEvent::KeyRelease, key, m, text);
        // The key is released where the focus is then.
        if (QWidget* now = FocusWidget()) QApplication::sendEvent(now, &release);
    }
}

void QtUser::Press(int16_t keyCode, int16_t shift) {
    QWidget* w = FocusWidget();
    if (!w) return;
    Qt::KeyboardModifiers m = Qt::NoModifier;
    if (shift & vbShiftMask) m |= Qt::ShiftModifier;
    if (shift & vbCtrlMask) m |= Qt::ControlModifier;
    QString text;
    switch (keyCode) {
        case vbKeyReturn: text = "\r"; break;
        case vbKeyEscape: text = QString(QChar(27)); break;
        case vbKeyBack: text = QString(QChar(8)); break;
        case vbKeySpace: text = " "; break;
        default: break;
    }
    QKeyEvent press(QEvent::KeyPress, QtKeyOf(keyCode), m, text);
    QApplication::sendEvent(w, &press);
    QKeyEvent release(QEvent::KeyRelease, QtKeyOf(keyCode), m, text);
    if (QWidget* now = FocusWidget()) QApplication::sendEvent(now, &release);
}

void QtUser::PickDay(const ControlRef& monthView, Date day) {
    auto* m = dynamic_cast<MonthView*>(monthView.get());
    if (!m) RaisePlatform(ErrNum::MemberNotFound, "QtUser");
    QCalendarWidget* cal = m->Calendar();
    const DateParts p = day.Split();
    cal->setCurrentPage(p.Year, p.Month);
    auto* view = cal->findChild<QTableView*>();
    if (!view) RaisePlatform(ErrNum::MemberNotFound, "QtUser");
    // The day's cell: among the cells showing its number, the one of this
    // month (the first ones for an early day, the last ones for a late one).
    QModelIndex found;
    QAbstractItemModel* model = view->model();
    for (int r = 1; r < model->rowCount(); ++r)
        for (int c = 0; c < model->columnCount(); ++c) {
            const QModelIndex i = model->index(r, c);
            if (model->data(i).toInt() != p.Day) continue;
            const bool early = p.Day <= 15;
            if ((early && r <= 3 && !found.isValid()) || (!early && r >= 3)) found = i;
        }
    if (!found.isValid()) RaisePlatform(ErrNum::InvalidCall, "QtUser.PickDay");
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(found).center());
}

ControlRef QtUser::Focused() {
    QWidget* w = FocusWidget();
    if (!w) return nullptr;
    // The control whose widget holds the focus (or is its focus proxy's owner).
    for (QWidget* p = w; p; p = p->parentWidget()) {
        const std::string n = S(p->objectName());
        if (n.empty()) continue;
        try {
            return form_->Controls(n);
        } catch (const Error&) {
        }
    }
    return nullptr;
}

}  // namespace OVT_ZARO::QtKit
