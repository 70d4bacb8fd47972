#include "windows/trace/traced_factory.h"

#include "windows/com/class_factory.h"
#include "windows/trace/control.h"
#include "windows/trace/shown.h"
#include "windows/trace/trace_log.h"

namespace trace {
namespace {

/// Watches the windows of the thread that makes the first control, for as long as the thread lives.
void watchWindows() {
    thread_local const WindowTrace watching;
    static_cast<void>(watching);
}

}  // namespace

TracedFactory::TracedFactory() : factory_(com::Ptr<IClassFactory>::attach(new com::ClassFactory)) {}

STDMETHODIMP TracedFactory::QueryInterface(REFIID iid, void** out) noexcept {
    if (out != nullptr) write(L"host > class object QueryInterface(" + shown(iid) + L")");
    return Counted::QueryInterface(iid, out);
}

STDMETHODIMP TracedFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    watchWindows();
    write(L"host > class object CreateInstance(" + shown(iid) + L")");
    com::Ptr<IUnknown> control;
    const HRESULT made = factory_->CreateInstance(outer, IID_IUnknown, control.outVoid());
    write(L"= " + hex(static_cast<unsigned long>(made)) + L" CreateInstance");
    if (FAILED(made)) return made;
    try {
        return tracedControl(control.get())->QueryInterface(iid, out);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP TracedFactory::LockServer(BOOL lock) noexcept {
    write(L"host > class object LockServer(" + shown(lock) + L")");
    return factory_->LockServer(lock);
}

}  // namespace trace
