#include "ZARODatos/platform/Pictures.h"

#include <cctype>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO {

namespace detail {
struct PictureData {
    const char* key;
    const uint8_t* bytes;
    size_t size;
};
// Generated at build time from resources/pictures.
extern const PictureData kPictures[];
extern const size_t kPictureCount;
}  // namespace detail

PictureForm::PictureForm() {
    for (size_t i = 0; i < detail::kPictureCount; ++i) {
        const detail::PictureData& d = detail::kPictures[i];
        images_.push_back(std::make_shared<Picture>(d.key, std::vector<uint8_t>(d.bytes, d.bytes + d.size)));
    }
}

PictureRef PictureForm::Imagen(const Variant& Key) const {
    // The usual key, a text of plain letters, is compared directly: the keys
    // of the strip are distinct, so the last match is the only one.
    if (const std::string* k = Key.GetIf<std::string>()) {
        bool ascii = true;
        for (char ch : *k) ascii = ascii && static_cast<unsigned char>(ch) < 0x80;
        if (ascii) {
            PictureRef encontrada;
            for (const PictureRef& imagen : images_) {
                const std::string& clave = imagen->Key();
                if (clave.size() != k->size()) continue;
                bool igual = true;
                for (size_t i = 0; i < clave.size() && igual; ++i)
                    igual = std::tolower(static_cast<unsigned char>((*k)[i])) == static_cast<unsigned char>(clave[i]);
                if (igual) encontrada = imagen;
            }
            return encontrada;
        }
    }
    PictureRef resultado;
    for (const PictureRef& imagen : images_) {
        // Every key is compared: the walk does not stop at a match. A failure is skipped.
        try {
            if (CompareVariants(Key, Variant(imagen->Key()), CompareMethod::Text) == CompareResult::Equal)
                resultado = imagen;
        } catch (...) {
        }
    }
    return resultado;
}

const PictureRef& PictureForm::ListImage(int32_t position) const {
    if (position < 1 || position > Count()) RaisePlatform(ErrNum::SubscriptOutOfRange);
    return images_[static_cast<size_t>(position - 1)];
}

const PictureForm& Form1() {
    static const PictureForm form;
    return form;
}

}  // namespace OVT_ZARO
