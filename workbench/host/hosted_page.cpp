#include "workbench/host/hosted_page.h"

#include <olectl.h>

namespace workbench {
namespace {

constexpr int HIMETRIC_PER_INCH = 2540;

void initialise(const com::Ptr<IUnknown>& object) {
    if (const auto stream = object.as<IPersistStreamInit>())
        stream->InitNew();
    else if (const auto bag = object.as<IPersistPropertyBag>())
        bag->InitNew();
}

SIZEL himetric(const RECT& area) {
    const HDC screen = GetDC(nullptr);
    const SIZEL size{MulDiv(area.right, HIMETRIC_PER_INCH, GetDeviceCaps(screen, LOGPIXELSX)),
                     MulDiv(area.bottom, HIMETRIC_PER_INCH, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return size;
}

}  // namespace

HostedPage::HostedPage(com::Ptr<IUnknown> object, HWND parent, PageEvents& events, CallList& calls)
    : object_(std::move(object)),
      parent_(parent),
      calls_(calls),
      site_(com::Ptr<PageSite>::attach(new PageSite(parent, events, calls))),
      ole_(object_.as<IOleObject>()),
      page_(object_.as<PropertyPage>()) {
    if (!ole_) return;
    DWORD status = 0;
    ole_->GetMiscStatus(DVASPECT_CONTENT, &status);
    const bool siteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (siteFirst) ole_->SetClientSite(site_.get());
    initialise(object_);
    if (!siteFirst) ole_->SetClientSite(site_.get());
    ole_->SetHostNames(L"Quillmark workbench", nullptr);
    SIZEL size = himetric(site_->area());
    ole_->SetExtent(DVASPECT_CONTENT, &size);
}

HostedPage::~HostedPage() {
    site_->detach();
    site_->SetActiveObject(nullptr, nullptr);
    page_.reset();
    if (!ole_) return;
    ole_->Close(OLECLOSE_NOSAVE);
    ole_->SetClientSite(nullptr);
}

void HostedPage::show() {
    const RECT area = site_->area();
    if (ole_) ole_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, parent_, &area);
}

bool HostedPage::dirty() {
    VARIANT_BOOL dirty = VARIANT_FALSE;
    if (!page_ || FAILED(page_->get_Dirty(&dirty))) dirty = VARIANT_FALSE;
    calls_.note(side::hostToPage, L"Dirty", dirty != VARIANT_FALSE ? L"= true" : L"= false");
    return dirty != VARIANT_FALSE;
}

void HostedPage::apply() {
    if (!page_) return;
    calls_.note(side::hostToPage, L"Apply");
    const HRESULT result = page_->Apply();
    calls_.note(side::hostToPage, L"Apply returned", FAILED(result) ? L"a failure" : L"");
}

std::wstring HostedPage::caption() {
    com::Variant caption;
    DISPPARAMS none{};
    const auto dispatch = object_.as<IDispatch>();
    if (!dispatch || FAILED(dispatch->Invoke(DISPID_CAPTION, IID_NULL, LOCALE_USER_DEFAULT,
                                             DISPATCH_PROPERTYGET, &none, &caption, nullptr, nullptr)))
        return {};
    return caption.vt == VT_BSTR ? com::toText(caption.bstrVal) : std::wstring();
}

bool HostedPage::translate(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    if (!IsChild(parent_, message.hwnd)) return pressAccessKey(message);
    // Held: the key may open a dialog under which this page is closed.
    const com::Ptr<IOleInPlaceActiveObject> active(site_->activeObject());
    return active && active->TranslateAccelerator(&message) == S_OK;
}

bool HostedPage::pressAccessKey(MSG& message) {
    const auto control = object_.as<IOleControl>();
    CONTROLINFO information{};
    information.cb = sizeof information;
    WORD command = 0;
    if (!control || !IsWindowVisible(parent_) || FAILED(control->GetControlInfo(&information))) return false;
    if (information.cAccel == 0 || !IsAccelerator(information.hAccel, information.cAccel, &message, &command))
        return false;
    return SUCCEEDED(control->OnMnemonic(&message));
}

}  // namespace workbench
