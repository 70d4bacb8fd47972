// What a host keeps the control's properties in: each call to it is one that the host may react in.
#pragma once

#include "tests/windows/com/fake_bag.h"
#include "tests/windows/matrix/hostile_world.h"
#include "tests/windows/stage/variants.h"

namespace tests {

/// Something of the host's in which each call is told to the world.
template <class Kept>
class Hostile : public Kept {
public:
    explicit Hostile(HostileWorld& world) : world_(world) {}

protected:
    HostileWorld& world_;
};

/// Its values have a type that the control has to report.
class HostileBag : public Hostile<FakeBag> {
public:
    using Hostile::Hostile;
    STDMETHODIMP Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
        *value = text(SysAllocString(L"nonsense"));
        world_.called("a bag's Read");
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        world_.called("a bag's Write");
        return FakeBag::Write(name, value);
    }
};

class HostileErrorLog : public Hostile<FakeErrorLog> {
public:
    using Hostile::Hostile;
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* error) override {
        world_.called("AddError");
        return FakeErrorLog::AddError(name, error);
    }
};

/// Holds nothing and takes everything.
class HostileStream : public Hostile<Local<IStream>> {
public:
    using Hostile::Hostile;
    STDMETHODIMP Read(void*, ULONG, ULONG* read) override {
        if (read != nullptr) *read = 0;
        world_.called("a stream's Read");
        return S_FALSE;
    }
    STDMETHODIMP Write(const void*, ULONG size, ULONG* written) override {
        if (written != nullptr) *written = size;
        world_.called("a stream's Write");
        return S_OK;
    }
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) override { return E_NOTIMPL; }
};

}  // namespace tests
