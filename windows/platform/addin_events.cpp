#include "windows/platform/addin_events.h"

#include <ocidl.h>

#include "common/error.h"
#include "windows/platform/addin_errors.h"
#include "windows/platform/addin_sink.h"

namespace win {
namespace {

constexpr DISPID MEMBER_WITHOUT_A_NAME = 1;

com::Ptr<IConnectionPoint> defaultSource(IUnknown& object, IConnectionPointContainer& container) {
    com::Ptr<IProvideClassInfo2> classInformation;
    com::Ptr<IConnectionPoint> point;
    IID source{};
    if (FAILED(object.QueryInterface(__uuidof(IProvideClassInfo2), classInformation.outVoid()))) return {};
    if (FAILED(classInformation->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source))) return {};
    if (FAILED(container.FindConnectionPoint(source, point.out()))) return {};
    return point;
}

com::Ptr<IConnectionPoint> firstConnectionPoint(IConnectionPointContainer& container) {
    com::Ptr<IEnumConnectionPoints> points;
    com::Ptr<IConnectionPoint> point;
    ULONG count = 0;
    if (FAILED(container.EnumConnectionPoints(points.out())) || !points) return {};
    if (points->Next(1, point.out(), &count) != S_OK) return {};
    return point;
}

com::Ptr<IConnectionPoint> findSource(IUnknown& object) {
    com::Ptr<IConnectionPointContainer> container;
    throwIfFailed(object.QueryInterface(__uuidof(IConnectionPointContainer), container.outVoid()));
    com::Ptr<IConnectionPoint> point = defaultSource(object, *container.get());
    if (!point) point = firstConnectionPoint(*container.get());
    if (!point) throw vexa::Error(L"The add-in offers no events");
    return point;
}

/// The type information of the object's class or, where it tells none, of its own dispatch interface.
com::Ptr<ITypeInfo> anyTypeInformation(const com::Ptr<IUnknown>& object) {
    com::Ptr<ITypeInfo> information;
    if (const auto provider = object.as<IProvideClassInfo>();
        provider && SUCCEEDED(provider->GetClassInfo(information.out())) && information)
        return information;
    if (const auto dispatch = object.as<IDispatch>())
        if (FAILED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.out()))) return {};
    return information;
}

DISPID memberByName(const com::Ptr<IUnknown>& object, const IID& source) {
    const com::Ptr<ITypeInfo> own = anyTypeInformation(object);
    com::Ptr<ITypeLib> library;
    com::Ptr<ITypeInfo> events;
    UINT index = 0;
    MEMBERID member = MEMBER_WITHOUT_A_NAME;
    if (!own || FAILED(own->GetContainingTypeLib(library.out(), &index))) return MEMBER_WITHOUT_A_NAME;
    if (FAILED(library->GetTypeInfoOfGuid(source, events.out()))) return MEMBER_WITHOUT_A_NAME;
    wchar_t name[] = L"ProcessFinished";
    LPOLESTR names = name;
    return SUCCEEDED(events->GetIDsOfNames(&names, 1, &member)) ? member : MEMBER_WITHOUT_A_NAME;
}

class Connection : public vexa::EventConnection {
public:
    Connection(com::Ptr<IConnectionPoint> point, const ProcessFinishedEvent& event,
               vexa::AddIn::ProcessFinished handler)
        : point_(std::move(point)),
          sink_(com::Ptr<AddInSink>::attach(new AddInSink(event, std::move(handler)))) {
        try {
            callAddIn([&] { return point_->Advise(sink_.get(), &cookie_); });
        } catch (...) {
            sink_->disconnect();  // the add-in may keep what it has refused
            throw;
        }
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() override {
        // First, so that an event that comes while the add-in lets go finds no handler.
        sink_->disconnect();
        point_->Unadvise(cookie_);
    }

private:
    com::Ptr<IConnectionPoint> point_;
    com::Ptr<AddInSink> sink_;
    DWORD cookie_ = 0;
};

}  // namespace

std::unique_ptr<vexa::EventConnection> connectProcessFinished(const com::Ptr<IUnknown>& object,
                                                              vexa::AddIn::ProcessFinished handler) {
    com::Ptr<IConnectionPoint> point = findSource(*object.get());
    ProcessFinishedEvent event;
    throwIfFailed(point->GetConnectionInterface(&event.source));
    event.member = memberByName(object, event.source);
    return std::make_unique<Connection>(std::move(point), event, std::move(handler));
}

}  // namespace win
