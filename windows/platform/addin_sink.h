// The object that the add-in calls when it raises ProcessFinished.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "common/platform.h"
#include "interfaces/com.h"
#include "windows/platform/module_reference.h"
#include "windows/platform/thread_calls.h"

namespace win {

/// A source interface's identifier and its member ProcessFinished.
struct ProcessFinishedEvent {
    IID source{};
    DISPID member = 1;
};

/// Lives on its own, as long as anybody holds it, and keeps the library loaded so long; events after
/// `disconnect` do nothing. Arguments come by value or by reference and are converted; what does not convert
/// is refused.
///
/// The handler runs on the thread that made the sink, always. An event that is raised there is handled before
/// Invoke returns. One that is raised on another thread is taken with its arguments, and handled when the
/// sink's thread dispatches messages: whoever raises it never waits for the page. Events keep their order.
class AddInSink : public com::Counted<IDispatch> {
public:
    /// Throws vexa::Error.
    AddInSink(const ProcessFinishedEvent& event, vexa::AddIn::ProcessFinished handler);

    /// On the sink's own thread: the handler is not called any more. Safe inside the handler.
    void disconnect() noexcept;

    /// The source interface is this one under another name.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* identifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) noexcept override;

private:
    struct Event {
        std::wstring project;
        bool keepList;
    };
    HRESULT accept(Event event);
    [[nodiscard]] bool handle(const Event& event);

    ModuleReference module_;
    ProcessFinishedEvent event_;
    ThreadCalls calls_;
    std::atomic<bool> connected_{true};
    /// Used on the sink's own thread alone.
    std::shared_ptr<const vexa::AddIn::ProcessFinished> handler_;
};

}  // namespace win
