// Object: the base of every reference-counted object of the library that a
// Variant can hold. TypeName is the platform's class name of the object.
#pragma once

#include <memory>
#include <string>

namespace OVT_ZARO {

class Object : public std::enable_shared_from_this<Object> {
public:
    virtual ~Object() = default;
    // The class name, as the platform's TypeName gives it ("entarticulo").
    virtual std::string TypeName() const = 0;
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace OVT_ZARO
