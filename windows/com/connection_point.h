// The control's connection points: the places where containers leave their sinks.
#pragma once

#include <ocidl.h>

#include <vector>

#include "interfaces/com.h"
#include "windows/com/part.h"

namespace com {

/// A sub-object of the control with an identity of its own; it lives as long as the control.
class ConnectionPoint : public IConnectionPoint {
public:
    ConnectionPoint(IUnknown& whole, REFIID sinkInterface) : whole_(whole), sinkInterface_(sinkInterface) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return whole_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return whole_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override { return handOut(iid, sinkInterface_); }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** out) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** out) noexcept override;

    [[nodiscard]] const IID& sinkInterface() const { return sinkInterface_; }

    /// The sinks as they are now, so that a sink may leave while it is called.
    template <class Sink>
    [[nodiscard]] std::vector<Ptr<Sink>> sinks() const {
        std::vector<Ptr<Sink>> all;
        for (const Connection& connection : connections_)
            all.push_back(Ptr<Sink>(static_cast<Sink*>(connection.sink.get())));
        return all;
    }
    void disconnectAll() { connections_.clear(); }

private:
    struct Connection {
        DWORD cookie;
        Ptr<IUnknown> sink;  // points to the sink's `sinkInterface_`
    };

    IUnknown& whole_;
    IID sinkInterface_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

class ConnectionPoints : public Part<IConnectionPointContainer> {
public:
    explicit ConnectionPoints(IUnknown& whole);

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** out) noexcept override;

    /// Of sinks that are told of changed properties.
    ConnectionPoint propertyNotify;
};

}  // namespace com
