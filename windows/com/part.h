// The control's interfaces are spread over parts, one for each concern. A part is a member of the control and
// has the control's identity: a query for another interface and every reference go to the whole.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "windows/com/boundary.h"

namespace com {

template <class... Interfaces>
class Part : public Interfaces... {
public:
    explicit Part(IUnknown& whole) : whole_(whole) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        return whole_.QueryInterface(iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return whole_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return whole_.Release(); }

protected:
    ~Part() = default;
    /// Runs a method's body at the edge to COM. What it calls may let go of the control, which lives until
    /// the body has returned.
    template <class Body>
    HRESULT atBoundary(Body body) const noexcept {
        whole_.AddRef();
        const HRESULT result = com::atBoundary(body);
        whole_.Release();
        return result;
    }
    [[nodiscard]] IUnknown& whole() const { return whole_; }

private:
    IUnknown& whole_;
};

}  // namespace com
