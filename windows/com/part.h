// The control's interfaces are spread over parts, one for each concern. A part is a member of the control and
// has the control's identity: a query for another interface and every reference go to the whole.
#pragma once

#include <ole2.h>
#include <windows.h>

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
    [[nodiscard]] IUnknown& whole() const { return whole_; }

private:
    IUnknown& whole_;
};

}  // namespace com
