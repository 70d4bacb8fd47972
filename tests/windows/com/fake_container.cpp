#include "tests/windows/com/fake_container.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/shortage.h"

namespace tests {
namespace {

struct Offered {
    const IID& iid;
    const char* name;
    IUnknown* object;
};

}  // namespace

FakeContainer::FakeContainer(HWND window) : window_(window) {}

FakeContainer::~FakeContainer() {
    verify();
    EXPECT_EQ(references_, 1u) << "the control keeps references to its container";
}

STDMETHODIMP FakeContainer::QueryInterface(REFIID iid, void** out) noexcept {
    const Plenty plenty;
    const Offered offers[] = {
        {IID_IUnknown, "IUnknown", this},
        {IID_IOleClientSite, "IOleClientSite", &clientSite_},
        {IID_IOleWindow, "IOleInPlaceSite", &inPlaceSite_},
        {IID_IOleInPlaceSite, "IOleInPlaceSite", &inPlaceSite_},
        {IID_IOleInPlaceSiteEx, "IOleInPlaceSiteEx", &inPlaceSite_},
        {IID_IOleInPlaceFrame, "IOleInPlaceFrame", &frame_},
        {IID_IOleControlSite, "IOleControlSite", &controlSite_},
        {__uuidof(PropertyPageSite), "PropertyPageSite", &pageSite_},
        {IID_IDispatch, "IDispatch", &ambientDispatch_},
    };
    *out = nullptr;
    for (const Offered& each : offers)
        if (each.iid == iid) react(std::string("QueryInterface ") + each.name);
    const auto offer = std::ranges::find_if(offers, [&](const Offered& each) { return each.iid == iid; });
    if (offer == std::end(offers) || lacks.contains(offer->name)) return E_NOINTERFACE;
    *out = offer->object;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) FakeContainer::Release() noexcept {
    const Plenty plenty;
    const ULONG left = --references_;
    react("Release");
    return left;
}

void FakeContainer::expect(std::initializer_list<const char*> calls) {
    verify();
    expected_.assign(calls.begin(), calls.end());
}

void FakeContainer::verify() {
    for (const std::string& missing : expected_) ADD_FAILURE() << "the control did not call " << missing;
    expected_.clear();
}

int FakeContainer::count(const std::string& call) const {
    const auto found = calls_.find(call);
    return found == calls_.end() ? 0 : found->second;
}

HRESULT FakeContainer::called(const char* call) {
    const Plenty plenty;
    ++calls_[call];
    if (strict_) {
        if (expected_.empty() || expected_.front() != call)
            ADD_FAILURE() << "unexpected call: " << call
                          << "; expected: " << (expected_.empty() ? "none" : expected_.front());
        else
            expected_.pop_front();
    }
    react(call);
    const auto answer = answers.find(call);
    return answer == answers.end() ? usualAnswer : answer->second;
}

void FakeContainer::react(const std::string& call) {
    if (onCall) onCall(call);
    const auto found = during.find(call);
    if (found == during.end()) return;
    const auto reaction = found->second;  // which may take itself out
    reaction();
}

STDMETHODIMP FakeContainer::InPlaceSite::GetWindow(HWND* window) {
    const HRESULT answer = fake.called("GetWindow");
    *window = SUCCEEDED(answer) ? fake.window_ : nullptr;
    return answer;
}

STDMETHODIMP FakeContainer::InPlaceSite::GetWindowContext(IOleInPlaceFrame** frame,
                                                          IOleInPlaceUIWindow** document, LPRECT place,
                                                          LPRECT clipping,
                                                          LPOLEINPLACEFRAMEINFO information) {
    *frame = nullptr;
    *document = nullptr;
    const HRESULT answer = fake.called("GetWindowContext");
    if (FAILED(answer)) return answer;
    if (!fake.lacks.contains("IOleInPlaceFrame")) *frame = com::Ptr<IOleInPlaceFrame>(&fake.frame_).detach();
    *place = fake.position;
    *clipping = fake.clip;
    information->fMDIApp = FALSE;
    information->hwndFrame = fake.window_;
    information->haccel = nullptr;
    information->cAccelEntries = 0;
    return answer;
}

STDMETHODIMP FakeContainer::Ambients::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*,
                                             VARIANT* result, EXCEPINFO*, UINT*) {
    const Plenty plenty;
    static const std::map<DISPID, const char*> known{{DISPID_AMBIENT_DISPLAYNAME, "DISPLAYNAME"},
                                                     {DISPID_AMBIENT_FONT, "FONT"},
                                                     {DISPID_AMBIENT_UIDEAD, "UIDEAD"}};
    EXPECT_EQ(flags & DISPATCH_PROPERTYGET, DISPATCH_PROPERTYGET);
    EXPECT_TRUE(known.contains(member)) << "unexpected ambient property: " << member;
    if (const auto name = known.find(member); name != known.end()) fake.react(name->second);
    const auto ambient = fake.ambients.find(member);
    if (ambient == fake.ambients.end()) return DISP_E_MEMBERNOTFOUND;
    return VariantCopy(result, &ambient->second);
}

}  // namespace tests
