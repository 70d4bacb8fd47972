#include "windows/com/container.h"

#include <olectl.h>

#include "common/error.h"

namespace com {
namespace {

// How a container's control site counts the keys that are held.
constexpr DWORD KEYMOD_SHIFT = 1;
constexpr DWORD KEYMOD_CONTROL = 2;
constexpr DWORD KEYMOD_ALT = 4;

DWORD keyModifiers() {
    DWORD modifiers = 0;
    if (GetKeyState(VK_SHIFT) < 0) modifiers |= KEYMOD_SHIFT;
    if (GetKeyState(VK_CONTROL) < 0) modifiers |= KEYMOD_CONTROL;
    if (GetKeyState(VK_MENU) < 0) modifiers |= KEYMOD_ALT;
    return modifiers;
}

}  // namespace

Ptr<IFontDisp> copyOf(IUnknown* font) {
    Ptr<IFont> copy;
    if (const auto original = Ptr<IUnknown>(font).as<IFont>())
        if (FAILED(original->Clone(copy.out()))) return {};
    return copy.as<IFontDisp>();
}

void Container::enter(IOleClientSite* site) {
    // Taken first: letting the old site go may be the container's last reference to the new one.
    Ptr<IOleClientSite> entered(site);
    pageSite_ = entered.as<PropertyPageSite>();
    site_ = std::move(entered);
}

void Container::onStatusChange() {
    // The call may end with another site, or none.
    const Ptr<PropertyPageSite> site = pageSite_;
    if (site && FAILED(site->OnStatusChange()))
        throw vexa::Error(L"The container refused the status change.");
}

std::wstring Container::displayName() {
    Variant name;
    return ambient(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, name) ? toText(name.bstrVal) : std::wstring();
}

bool Container::ambient(DISPID property, VARTYPE type, VARIANT& value) const {
    const auto ambients = site_.as<IDispatch>();
    DISPPARAMS none{};
    return ambients &&
           SUCCEEDED(ambients->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                      &value, nullptr, nullptr)) &&
           SUCCEEDED(VariantChangeType(&value, &value, 0, type));
}

Ptr<IFontDisp> Container::ambientFont() const {
    Variant font;
    return ambient(DISPID_AMBIENT_FONT, VT_DISPATCH, font) ? copyOf(font.pdispVal) : Ptr<IFontDisp>();
}

bool Container::isDead() const {
    Variant dead;
    return ambient(DISPID_AMBIENT_UIDEAD, VT_BOOL, dead) && dead.boolVal != VARIANT_FALSE;
}

bool Container::offerKey(MSG& message) const {
    const auto site = site_.as<IOleControlSite>();
    return site && site->TranslateAccelerator(&message, keyModifiers()) == S_OK;
}

}  // namespace com
