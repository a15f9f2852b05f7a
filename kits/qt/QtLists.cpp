// The list box and combo box over QListWidget and QComboBox. ItemData is
// kept in each item's user data.
#include <QComboBox>
#include <QListWidget>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

namespace {
void CheckIndex(const Control& c, int32_t index, int32_t count, const char* member) {
    if (index < 0 || index >= count) RaisePlatform(ErrNum::InvalidPropertyIndex, c.TypeName() + "." + member);
}
}  // namespace

QWidget* ListBox::MakeWidget(QWidget* parent) {
    auto* l = new QListWidget(parent);
    l->setSelectionMode(QAbstractItemView::SingleSelection);
    l->setUniformItemSizes(true);
    return l;
}

std::vector<QWidget*> ListBox::EventSources() { return {widget_, List()->viewport()}; }

QListWidget* ListBox::List() const { return static_cast<QListWidget*>(&Alive(widget_, *this)); }

void ListBox::Clear() {
    List()->clear();
    newIndex_ = -1;
}

int32_t ListBox::GetListCount() { return List()->count(); }

void ListBox::AddItem(const std::string& item, int32_t Index) {
    QListWidget* l = List();
    if (Index < 0) Index = l->count();
    if (Index > l->count()) RaisePlatform(ErrNum::InvalidCall, TypeName() + ".AddItem");
    auto* it = new QListWidgetItem(Q(item));
    it->setData(Qt::UserRole, 0);
    l->insertItem(Index, it);
    newIndex_ = Index;
}

int32_t ListBox::GetListIndex() {
    QListWidget* l = List();
    return l->currentItem() && l->currentItem()->isSelected() ? l->currentRow() : -1;
}

void ListBox::SetListIndex(int32_t index) {
    if (index < -1 || index >= GetListCount()) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ListIndex");
    if (index == GetListIndex()) return;
    QListWidget* l = List();
    if (index < 0) {
        l->setCurrentRow(-1);
        l->clearSelection();
    } else {
        l->setCurrentRow(index);
        l->scrollToItem(l->item(index));
    }
    Click.Raise();
}

int32_t ListBox::GetItemData(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    return List()->item(index)->data(Qt::UserRole).toInt();
}

void ListBox::SetItemData(int32_t index, int32_t data) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    List()->item(index)->setData(Qt::UserRole, data);
}

std::string ListBox::GetList(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "List");
    return S(List()->item(index)->text());
}

std::string ListBox::GetText() {
    const int32_t i = GetListIndex();
    return i >= 0 ? S(List()->item(i)->text()) : std::string();
}

void ListBox::SetText(const std::string& text) {
    int32_t found = -1;
    for (int32_t i = 0; i < GetListCount() && found < 0; ++i)
        if (TextEquals(S(List()->item(i)->text()), text)) found = i;
    SetListIndex(found);
}

int32_t ListBox::GetBackColor() {
    const QColor c = List()->palette().color(QPalette::Base);
    return c.red() | (c.green() << 8) | (c.blue() << 16);
}

void ListBox::SetBackColor(int32_t c) {
    QPalette p = List()->palette();
    p.setColor(QPalette::Base, ColorOf(c));
    List()->setPalette(p);
}

bool ListBox::OnKeyDown(int16_t keyCode, int16_t) {
    if (keyCode == vbKeyUp) {
        if (GetListIndex() > 0) SetListIndex(GetListIndex() - 1);
        return true;
    }
    if (keyCode == vbKeyDown) {
        if (GetListIndex() + 1 < GetListCount()) SetListIndex(GetListIndex() + 1);
        return true;
    }
    return false;
}

void ListBox::OnMouseDown(int x, int y) {
    // The selection moves without a Click of its own: the Click comes with the release.
    QListWidget* l = List();
    if (QListWidgetItem* it = l->itemAt(x, y)) l->setCurrentItem(it);
}

// ---- Combo box -----------------------------------------------------------------------

QWidget* ComboBox::MakeWidget(QWidget* parent) {
    auto* c = new QComboBox(parent);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    return c;
}

QComboBox* ComboBox::Combo() const { return static_cast<QComboBox*>(&Alive(widget_, *this)); }

void ComboBox::Clear() {
    Combo()->clear();
    Combo()->setEditText(QString());
    newIndex_ = -1;
}

int32_t ComboBox::GetListCount() { return Combo()->count(); }

void ComboBox::AddItem(const std::string& item, int32_t Index) {
    QComboBox* c = Combo();
    if (Index < 0) Index = c->count();
    if (Index > c->count()) RaisePlatform(ErrNum::InvalidCall, TypeName() + ".AddItem");
    const QString text = c->currentText();
    const bool none = c->currentIndex() < 0;
    c->insertItem(Index, Q(item), 0);
    if (none) {
        c->setCurrentIndex(-1);
        c->setEditText(text);
    }
    newIndex_ = Index;
}

int32_t ComboBox::GetListIndex() { return Combo()->currentIndex(); }

void ComboBox::SetListIndex(int32_t index) {
    if (index < -1 || index >= GetListCount()) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ListIndex");
    if (index == GetListIndex()) return;
    Combo()->setCurrentIndex(index);
    Click.Raise();
}

int32_t ComboBox::GetItemData(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    return Combo()->itemData(index).toInt();
}

void ComboBox::SetItemData(int32_t index, int32_t data) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    Combo()->setItemData(index, data);
}

std::string ComboBox::GetList(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "List");
    return S(Combo()->itemText(index));
}

std::string ComboBox::GetText() { return S(Combo()->currentText()); }

void ComboBox::SetText(const std::string& text) {
    int32_t found = -1;
    for (int32_t i = 0; i < GetListCount() && found < 0; ++i)
        if (TextEquals(S(Combo()->itemText(i)), text)) found = i;
    if (found >= 0) {
        SetListIndex(found);
    } else {
        Combo()->setCurrentIndex(-1);  // a text of no item: nothing selected, no Click
        Combo()->setEditText(Q(text));
    }
}

}  // namespace OVT_ZARO::QtKit
