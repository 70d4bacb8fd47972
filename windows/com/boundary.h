// The edge between C++ and COM: inside, failures are exceptions; outside, they are result codes. Every method
// that COM calls runs its body in `atBoundary`, so that nothing is ever thrown into the host.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <new>
#include <type_traits>

namespace com {

/// A failing result code on its way to the edge.
class Failure {
public:
    explicit Failure(HRESULT code) : code_(code) {}
    [[nodiscard]] HRESULT code() const { return code_; }

private:
    HRESULT code_;
};

/// Throws Failure where `code` is a failure; else returns it.
inline HRESULT check(HRESULT code) {
    if (FAILED(code)) throw Failure(code);
    return code;
}

/// Throws Failure(E_POINTER) where the caller gave no place for the result.
template <class Pointer>
Pointer& required(Pointer* pointer) {
    if (pointer == nullptr) throw Failure(E_POINTER);
    return *pointer;
}

/// Leaves a value in the caller's place.
template <class Value>
HRESULT handOut(Value* place, const std::type_identity_t<Value>& value) noexcept {
    if (place == nullptr) return E_POINTER;
    *place = value;
    return S_OK;
}

/// Runs `body`, which returns an HRESULT, and turns what it throws into one.
template <class Body>
HRESULT atBoundary(Body body) noexcept {
    try {
        return body();
    } catch (const Failure& failure) {
        return failure.code();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace com
