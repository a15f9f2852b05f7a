// The text box over QLineEdit, the month calendar over QCalendarWidget, and
// the pictures of the strip as pixmaps.
#include <QCalendarWidget>
#include <QLineEdit>
#include <QPixmap>
#include <QTableView>
#include <map>

#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Strings.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

QWidget* TextBox::MakeWidget(QWidget* parent) {
    auto* e = new QLineEdit(parent);
    e->setFrame(true);
    return e;
}

QLineEdit* TextBox::Edit() const { return static_cast<QLineEdit*>(&Alive(widget_, *this)); }

std::string TextBox::GetText() { return S(Edit()->text()); }

void TextBox::SetText(const std::string& text) {
    QLineEdit* e = Edit();
    e->setText(Q(text));
    e->setCursorPosition(0);  // setting the text puts the caret at 0
}

int32_t TextBox::GetSelStart() {
    QLineEdit* e = Edit();
    return e->hasSelectedText() ? e->selectionStart() : e->cursorPosition();
}

void TextBox::SetSelStart(int32_t start) {
    if (start < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".SelStart");
    QLineEdit* e = Edit();
    e->deselect();
    e->setCursorPosition(std::min<int32_t>(start, static_cast<int32_t>(e->text().size())));
}

int32_t TextBox::GetSelLength() { return static_cast<int32_t>(Edit()->selectedText().size()); }

void TextBox::SetSelLength(int32_t length) {
    if (length < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".SelLength");
    QLineEdit* e = Edit();
    const int32_t start = GetSelStart();
    const int32_t n = std::min<int32_t>(length, static_cast<int32_t>(e->text().size()) - start);
    if (n <= 0) {
        e->deselect();
        e->setCursorPosition(start);
    } else {
        e->setSelection(start, n);
    }
}

void TextBox::SetAlignment(int32_t v) {
    alignment_ = v;
    Edit()->setAlignment((v == 1 ? Qt::AlignRight : v == 2 ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
}

std::string TextBox::GetToolTipText() { return S(Edit()->toolTip()); }
void TextBox::SetToolTipText(const std::string& t) { Edit()->setToolTip(Q(t)); }

void TextBox::SetBackColor(int32_t c) {
    backColor_ = c;
    QPalette p = Edit()->palette();
    p.setColor(QPalette::Base, ColorOf(c));
    Edit()->setPalette(p);
}

// ---- Month calendar --------------------------------------------------------------------

namespace {
QDate QDateOf(Date d) {
    const DateParts p = d.Split();
    return QDate(p.Year, p.Month, p.Day);
}
}  // namespace

QWidget* MonthView::MakeWidget(QWidget* parent) {
    auto* c = new QCalendarWidget(parent);
    c->setGridVisible(true);
    c->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    c->setFirstDayOfWeek(Qt::Monday);
    c->setSelectedDate(QDateOf(Today()));
    // A day clicked: Value is that day, then DateClick.
    QObject::connect(c, &QCalendarWidget::clicked, c, [this](QDate d) {
        Date date = Date::FromParts(d.year(), d.month(), d.day());
        DateClick.Raise(date);
    });
    return c;
}

std::vector<QWidget*> MonthView::EventSources() {
    // Focus and keys go to the calendar's own table of days.
    std::vector<QWidget*> s{widget_};
    if (auto* v = Calendar()->findChild<QTableView*>()) s.push_back(v);
    return s;
}

QCalendarWidget* MonthView::Calendar() const { return static_cast<QCalendarWidget*>(&Alive(widget_, *this)); }

Date MonthView::GetValue() {
    const QDate d = Calendar()->selectedDate();
    return Date::FromParts(d.year(), d.month(), d.day());
}

void MonthView::SetValue(Date d) {
    const QDate q = QDateOf(d);
    Calendar()->setSelectedDate(q);
    Calendar()->setCurrentPage(q.year(), q.month());
}

// ---- Pictures ---------------------------------------------------------------------------

const QPixmap& PixmapOf(const PictureRef& picture) {
    // Made once per picture; kept past the application's end on purpose (a
    // pixmap must not be destroyed after it).
    static auto* cache = new std::map<const Picture*, std::pair<std::weak_ptr<Picture>, QPixmap>>();
    auto it = cache->find(picture.get());
    if (it != cache->end() && it->second.first.lock() == picture) return it->second.second;
    QPixmap pm;
    pm.loadFromData(picture->Png().data(), static_cast<uint>(picture->Png().size()), "PNG");
    auto& entry = (*cache)[picture.get()];
    entry = {picture, pm};
    return entry.second;
}

}  // namespace OVT_ZARO::QtKit
