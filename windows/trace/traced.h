// Objects that stand in front of others: they note each call, pass it on and note its result. An object and
// all its interfaces keep one identity, on both sides.
#pragma once

#include <ole2.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "interfaces/com.h"
#include "windows/trace/shown.h"
#include "windows/trace/trace_log.h"

namespace trace {

class TracedObject;

/// One interface of a traced object, as it is handed out.
class Facet {
public:
    virtual ~Facet() = default;
    [[nodiscard]] virtual IUnknown* handedOut() = 0;
};

/// Makes the facet for an interface that `object` has; null for interfaces that are not traced.
using FacetMaker = std::unique_ptr<Facet> (*)(TracedObject& whole, IUnknown& object, REFIID iid);

/// Stands in front of an object and lives as long as someone refers to it.
class TracedObject : public IUnknown {
public:
    /// `side` says who calls whom. The result has one reference.
    static com::Ptr<IUnknown> create(IUnknown* object, const wchar_t* side, FacetMaker maker);
    TracedObject(const TracedObject&) = delete;
    TracedObject& operator=(const TracedObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;

    [[nodiscard]] const std::wstring& side() const { return side_; }
    [[nodiscard]] IUnknown* object() const { return object_.get(); }

private:
    TracedObject(IUnknown* object, const wchar_t* side, FacetMaker maker)
        : object_(object), side_(side), maker_(maker) {}
    virtual ~TracedObject() = default;

    com::Ptr<IUnknown> object_;
    std::wstring side_;
    FacetMaker maker_;
    LONG references_ = 1;
    struct Less {
        bool operator()(const IID& left, const IID& right) const {
            return std::memcmp(&left, &right, sizeof left) < 0;
        }
    };
    std::map<IID, std::unique_ptr<Facet>, Less> facets_;
};

template <class Interface>
class Traced : public Interface, public Facet {
public:
    Traced(TracedObject& whole, const wchar_t* name, Interface& target)
        : whole_(whole), name_(name), target_(target) {
        // The whole holds the object; an interface of it that counts by itself lives as long.
        target_.AddRef();
    }
    Traced(const Traced&) = delete;
    Traced& operator=(const Traced&) = delete;
    ~Traced() override { target_.Release(); }

    [[nodiscard]] IUnknown* handedOut() override { return static_cast<Interface*>(this); }
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        return whole_.QueryInterface(iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return whole_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return whole_.Release(); }

protected:
    /// Passes a call on, between two lines of the trace.
    template <class Method, class... Arguments>
    auto call(const wchar_t* method, Method function, Arguments... arguments) noexcept {
        const std::wstring title = std::wstring(name_) + L"::" + method;
        write(whole_.side() + L" " + title + L"(" + shownAll(arguments...) + L")");
        const auto result = passOn(function, arguments...);
        write(L"= " + hex(static_cast<unsigned long>(result)) + L" " + title);
        return result;
    }
    [[nodiscard]] Interface& target() { return target_; }

private:
    template <class Method, class... Arguments>
    auto passOn(Method function, Arguments... arguments) noexcept {
        const Deeper deeper;
        return (target_.*function)(arguments...);
    }

    TracedObject& whole_;
    const wchar_t* name_;
    Interface& target_;
};

/// The facet `Class` for `Interface`.
template <class Class, class Interface>
std::unique_ptr<Facet> facet(TracedObject& whole, IUnknown& object, REFIID iid, const wchar_t* name) {
    void* found = nullptr;
    if (FAILED(object.QueryInterface(iid, &found))) return nullptr;
    const auto target = com::Ptr<Interface>::attach(static_cast<Interface*>(found));
    return std::make_unique<Class>(whole, name, *target.get());
}

}  // namespace trace
