#include "ZARODatos/platform/Controls.h"

#include <algorithm>

#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO {

void Control::Missing(const char* member) const { RaisePlatform(ErrNum::MemberNotFound, TypeName() + "." + member); }

void Control::DetachAllHandlers() {
    Click.Clear();
    DblClick.Clear();
    KeyDown.Clear();
    KeyUp.Clear();
    KeyPress.Clear();
    MouseDown.Clear();
    MouseUp.Clear();
    EnterCell.Clear();
    LeaveCell.Clear();
    GotFocus.Clear();
    LostFocus.Clear();
    DateClick.Clear();
}

namespace {
uint32_t BigEndian32(const std::vector<uint8_t>& b, size_t at) {
    return (uint32_t{b[at]} << 24) | (uint32_t{b[at + 1]} << 16) | (uint32_t{b[at + 2]} << 8) | b[at + 3];
}
}  // namespace

Picture::Picture(std::string key, std::vector<uint8_t> png) : key_(std::move(key)), png_(std::move(png)) {
    // The size stands in the PNG header: 8 bytes of signature, then the IHDR chunk.
    static const uint8_t signature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (png_.size() >= 24 && std::equal(signature, signature + 8, png_.begin()) && png_[12] == 'I' && png_[13] == 'H' &&
        png_[14] == 'D' && png_[15] == 'R') {
        width_ = static_cast<int32_t>(BigEndian32(png_, 16));
        height_ = static_cast<int32_t>(BigEndian32(png_, 20));
    }
}

}  // namespace OVT_ZARO
