// Form1: the hidden form that owns the library's picture strip.
//
// Ten small pictures under these keys, in this order: "checked",
// "unchecked", "lupa", "star", "edit", "calendar", "add", "delete",
// "atencion" (the warning mark of a refused cell) and "printer". They are
// 16 by 16 pixels, but for "printer", of 16 by 15; PNG files of this
// project, built into the library.
// One instance is made at first use and stays for the life of the process;
// it is never shown. Thread: the user-interface thread (the first use may
// come from any thread; it is made once).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ZARODatos/platform/Controls.h"
#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO {

class PictureForm {
public:
    // The picture whose key equals Key by text comparison (case ignored), or
    // no picture. Never raises: an unknown key, Null or a number gives none.
    PictureRef Imagen(const Variant& Key) const;

    // The picture list: Count, and the picture at a position from 1 (9 when
    // out of range).
    int32_t Count() const { return static_cast<int32_t>(images_.size()); }
    const PictureRef& ListImage(int32_t position) const;

    PictureForm();

private:
    std::vector<PictureRef> images_;
};

// The one picture form of the process.
const PictureForm& Form1();

}  // namespace OVT_ZARO
