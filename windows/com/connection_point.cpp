#include "windows/com/connection_point.h"

#include <olectl.h>

#include <algorithm>

#include "windows/com/boundary.h"
#include "windows/com/snapshot_enumerator.h"

namespace com {

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
    *out = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** out) noexcept {
    if (out == nullptr) return E_POINTER;
    return whole_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(out));
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    // The sink may let go of the control.
    const Ptr<IUnknown> self(&whole_);
    return atBoundary([&] {
        required(cookie) = 0;
        Ptr<IUnknown> wanted;
        if (FAILED(required(sink).QueryInterface(sinkInterface_, wanted.outVoid())))
            return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({lastCookie_ + 1, std::move(wanted)});
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const Ptr<IUnknown> self(&whole_);
    const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Released when the list is whole again: the sink's end may come back here.
    const Connection ended = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** out) noexcept {
    return atBoundary([&] {
        required(out) = nullptr;
        std::vector<CONNECTDATA> items;
        for (const Connection& connection : connections_)
            items.push_back({connection.sink.get(), connection.cookie});
        *out = new SnapshotEnumerator<IEnumConnections, CONNECTDATA>(items);
        return S_OK;
    });
}

ConnectionPoints::ConnectionPoints(IUnknown& whole)
    : Part(whole), propertyNotify(whole, IID_IPropertyNotifySink) {}

STDMETHODIMP ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** out) noexcept {
    return atBoundary([&] {
        required(out) = nullptr;
        *out = new SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*>({&propertyNotify});
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (iid != propertyNotify.sinkInterface()) return CONNECT_E_NOCONNECTION;
    *out = &propertyNotify;
    propertyNotify.AddRef();
    return S_OK;
}

}  // namespace com
