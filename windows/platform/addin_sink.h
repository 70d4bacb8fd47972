// The object that the add-in calls when it raises ProcessFinished.
#pragma once

#include <atomic>
#include <memory>

#include "common/platform.h"
#include "interfaces/com.h"

namespace win {

/// A source interface's identifier and its member ProcessFinished.
struct ProcessFinishedEvent {
    IID source{};
    DISPID member = 1;
};

/// Lives on its own, as long as the add-in holds it; events after `disconnect` do nothing. Arguments come by
/// value or by reference and are converted; what does not convert is refused.
class AddInSink : public IDispatch {
public:
    AddInSink(const ProcessFinishedEvent& event, vexa::AddIn::ProcessFinished handler);
    AddInSink(const AddInSink&) = delete;
    AddInSink& operator=(const AddInSink&) = delete;

    /// The handler is not called any more. Safe inside the handler.
    void disconnect() noexcept { handler_.reset(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* identifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) noexcept override;

private:
    virtual ~AddInSink() = default;

    std::atomic<ULONG> references_{1};
    ProcessFinishedEvent event_;
    std::shared_ptr<const vexa::AddIn::ProcessFinished> handler_;
};

}  // namespace win
