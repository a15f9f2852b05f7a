#include "ZARODatos/platform/Variant.h"

#include "platform/Overloaded.h"

namespace OVT_ZARO {

using detail::Overloaded;

int Variant::VarType() const {
    return std::visit(Overloaded{
                          [](EmptyValue) { return int(vbEmpty); },
                          [](NullValue) { return int(vbNull); },
                          [](int16_t) { return int(vbInteger); },
                          [](int32_t) { return int(vbLong); },
                          [](int64_t) { return int(vbLongLong); },
                          [](double) { return int(vbDouble); },
                          [](Date) { return int(vbDate); },
                          [](const std::string&) { return int(vbString); },
                          [](bool) { return int(vbBoolean); },
                          [](const ObjectRef&) { return int(vbObject); },
                          [](const ByteArray&) { return int(vbArray | vbByte); },
                      },
                      v_);
}

bool Variant::IsNumber() const {
    return Is<int16_t>() || Is<int32_t>() || Is<int64_t>() || Is<double>();
}

std::string TypeName(const Variant& v) {
    return std::visit(Overloaded{
                          [](EmptyValue) { return std::string("Empty"); },
                          [](NullValue) { return std::string("Null"); },
                          [](int16_t) { return std::string("Integer"); },
                          [](int32_t) { return std::string("Long"); },
                          [](int64_t) { return std::string("LongLong"); },
                          [](double) { return std::string("Double"); },
                          [](Date) { return std::string("Date"); },
                          [](const std::string&) { return std::string("String"); },
                          [](bool) { return std::string("Boolean"); },
                          [](const ObjectRef& o) { return o ? o->TypeName() : std::string("Nothing"); },
                          [](const ByteArray&) { return std::string("Byte()"); },
                      },
                      v.Raw());
}

}  // namespace OVT_ZARO
