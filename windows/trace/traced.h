// Objects that stand in front of others: they note each call, pass it on and note its result. An object and
// all its interfaces keep one identity, on both sides.
#pragma once

#include <ole2.h>

#include <cstring>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "interfaces/com.h"
#include "windows/com/part.h"
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

/// An interface that is traced, and what is handed out for it.
struct FacetRow {
    const IID& asked;
    const wchar_t* name;  ///< in the trace
    /// Null where `object` lacks the interface.
    std::unique_ptr<Facet> (*make)(TracedObject& whole, IUnknown& object, const wchar_t* name);
};

/// Stands in front of an object and lives as long as someone refers to it.
class TracedObject : public IUnknown {
public:
    /// `side` says who calls whom. The result has one reference.
    static com::Ptr<IUnknown> create(IUnknown* object, const wchar_t* side, std::span<const FacetRow> facets);
    TracedObject(const TracedObject&) = delete;
    TracedObject& operator=(const TracedObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;

    [[nodiscard]] const std::wstring& side() const { return side_; }
    [[nodiscard]] IUnknown* object() const { return object_.get(); }

private:
    TracedObject(IUnknown* object, const wchar_t* side, std::span<const FacetRow> rows)
        : object_(object), side_(side), rows_(rows) {}
    virtual ~TracedObject() = default;
    /// Null for interfaces that are not traced.
    [[nodiscard]] std::unique_ptr<Facet> makeFacet(REFIID iid);

    com::Ptr<IUnknown> object_;
    std::wstring side_;
    std::span<const FacetRow> rows_;
    LONG references_ = 1;
    struct Less {
        bool operator()(const IID& left, const IID& right) const {
            return std::memcmp(&left, &right, sizeof left) < 0;
        }
    };
    std::map<IID, std::unique_ptr<Facet>, Less> facets_;
};

template <class Interface>
class Traced : public com::Part<Interface>, public Facet {
public:
    using Target = Interface;
    Traced(TracedObject& whole, const wchar_t* name, Interface& target)
        : com::Part<Interface>(whole), traced_(whole), name_(name), target_(target) {
        // The whole holds the object; an interface of it that counts by itself lives as long.
        target_.AddRef();
    }
    ~Traced() override { target_.Release(); }

    [[nodiscard]] IUnknown* handedOut() override { return static_cast<Interface*>(this); }

protected:
    /// Passes a call on, between two lines of the trace.
    template <class Method, class... Arguments>
    auto call(const wchar_t* method, Method function, Arguments... arguments) noexcept {
        const std::wstring title = std::wstring(name_) + L"::" + method;
        write(traced_.side() + L" " + title + L"(" + shownAll(arguments...) + L")");
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

    TracedObject& traced_;
    const wchar_t* name_;
    Interface& target_;
};

/// Makes a facet of this class, which says what its `Target` is.
template <class Class>
std::unique_ptr<Facet> facet(TracedObject& whole, IUnknown& object, const wchar_t* name) {
    com::Ptr<typename Class::Target> target;
    if (FAILED(object.QueryInterface(__uuidof(typename Class::Target), target.outVoid()))) return nullptr;
    return std::make_unique<Class>(whole, name, *target.get());
}

}  // namespace trace

#define TRACED_ARGUMENTS(...) __VA_OPT__(, ) __VA_ARGS__
/// A method of a class that is derived from Traced: passes the call on with `arguments`, the names of the
/// parameters that follow them. A macro, because the method, the one that it calls and the trace's text bear
/// the same name.
#define TRACED_METHOD(name, arguments, ...)                                     \
    STDMETHODIMP name(__VA_ARGS__) noexcept override {                          \
        return this->call(L"" #name, &Target::name TRACED_ARGUMENTS arguments); \
    }
/// The same for a method that reads a property.
#define TRACED_GETTER(name, type)                                 \
    STDMETHODIMP get_##name(type value) noexcept override {       \
        return this->call(L"" #name, &Target::get_##name, value); \
    }
