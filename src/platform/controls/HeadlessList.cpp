// The headless list box and combo box.
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"

namespace OVT_ZARO::Headless {

namespace {
void CheckIndex(const Control& c, int32_t index, int32_t count, const char* member) {
    if (index < 0 || index >= count) RaisePlatform(ErrNum::InvalidPropertyIndex, c.TypeName() + "." + member);
}
}  // namespace

void ListBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    newIndex_ = -1;
}

void ListBox::AddItem(const std::string& item, int32_t Index) {
    const auto count = static_cast<int32_t>(items_.size());
    if (Index < 0) Index = count;
    if (Index > count) RaisePlatform(ErrNum::InvalidCall, TypeName() + ".AddItem");
    items_.insert(items_.begin() + Index, Item{item, 0});
    if (listIndex_ >= Index) ++listIndex_;
    newIndex_ = Index;
}

void ListBox::SetListIndex(int32_t index) {
    if (index < -1 || index >= GetListCount()) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ListIndex");
    if (index == listIndex_) return;
    listIndex_ = index;
    Click.Raise();
}

int32_t ListBox::GetItemData(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    return items_[static_cast<size_t>(index)].data;
}

void ListBox::SetItemData(int32_t index, int32_t data) {
    CheckIndex(*this, index, GetListCount(), "ItemData");
    items_[static_cast<size_t>(index)].data = data;
}

std::string ListBox::GetList(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "List");
    return items_[static_cast<size_t>(index)].text;
}

std::string ListBox::GetText() { return listIndex_ >= 0 ? items_[static_cast<size_t>(listIndex_)].text : std::string(); }

void ListBox::SetText(const std::string& text) {
    int32_t found = -1;
    for (size_t i = 0; i < items_.size() && found < 0; ++i)
        if (TextEquals(items_[i].text, text)) found = static_cast<int32_t>(i);
    SetListIndex(found);
}

void ListBox::UserClickItem(int32_t index) {
    CheckIndex(*this, index, GetListCount(), "List");
    UserClick(100.0f, static_cast<float>(index * ItemHeight + ItemHeight / 2));
}

void ListBox::OnMouseDown(float, float y) {
    const auto index = static_cast<int32_t>(y) / ItemHeight;
    if (index < 0 || index >= GetListCount()) return;
    // The selection moves without a Click of its own: the Click comes with the mouse's release.
    listIndex_ = index;
}

void ListBox::OnKeyDown(int16_t keyCode, int16_t) {
    if (keyCode == vbKeyUp && listIndex_ > 0) SetListIndex(listIndex_ - 1);
    else if (keyCode == vbKeyDown && listIndex_ + 1 < GetListCount()) SetListIndex(listIndex_ + 1);
}

std::string ComboBox::GetText() { return listIndex_ >= 0 ? ListBox::GetText() : text_; }

void ComboBox::SetText(const std::string& text) {
    text_ = text;
    int32_t found = -1;
    for (size_t i = 0; i < items_.size() && found < 0; ++i)
        if (TextEquals(items_[i].text, text)) found = static_cast<int32_t>(i);
    if (found >= 0) SetListIndex(found);
    else listIndex_ = -1;  // a text of no item: nothing selected, no Click
}

void ComboBox::Clear() {
    ListBox::Clear();
    text_.clear();
}

}  // namespace OVT_ZARO::Headless
