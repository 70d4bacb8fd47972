#include "common/error.h"

#include <new>

namespace vexa {

std::wstring currentErrorDescription() {
    try {
        throw;
    } catch (const Error& error) {
        return error.description();
    } catch (const std::bad_alloc&) {
        return description::outOfMemory;
    } catch (const std::exception& error) {
        const std::string text = error.what();
        return {text.begin(), text.end()};
    } catch (...) {
        return L"Unknown error";
    }
}

}  // namespace vexa
