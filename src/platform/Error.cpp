#include "ZARODatos/platform/Error.h"

#include <new>

namespace OVT_ZARO {

Error::Error(int32_t number, std::string source, std::string description)
    : Number(number), Source(std::move(source)), Description(std::move(description)) {}

std::string PlatformErrorText(int32_t number) {
    switch (number) {
        case 3: return "Return without GoSub";
        case 5: return "Invalid procedure call or argument";
        case 6: return "Overflow";
        case 7: return "Out of memory";
        case 9: return "Subscript out of range";
        case 11: return "Division by zero";
        case 13: return "Type mismatch";
        case 91: return "Object variable or With block variable not set";
        case 94: return "Invalid use of Null";
        case 380: return "Invalid property value";
        case 381: return "Invalid property array index";
        case 424: return "Object required";
        case 438: return "Object doesn't support this property or method";
        case 457: return "This key is already associated with an element of this collection";
        case 730: return "Control not found";
        case 3021:
            return "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires "
                   "a current record.";
        case 3265: return "Item cannot be found in the collection corresponding to the requested name or ordinal.";
        case 3704: return "Operation is not allowed when the object is closed.";
        default: return {};
    }
}

void RaisePlatform(int32_t number, const std::string& source) {
    throw Error(number, source, PlatformErrorText(number));
}

Error CurrentError() {
    try {
        throw;
    } catch (const Error& e) {
        return e;
    } catch (const std::bad_alloc&) {
        return Error(7, "", PlatformErrorText(7));
    } catch (const std::exception& e) {
        return Error(51, "", std::string("Internal error: ") + e.what());
    } catch (...) {
        return Error(51, "", "Internal error");
    }
}

void Reraise(const std::string& source) {
    Error e = CurrentError();
    throw Error(e.Number, source, e.Description);
}

}  // namespace OVT_ZARO
