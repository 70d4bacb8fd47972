// The control's edge: calls without places for their results, calls after the end, and memory that runs out.
#include "tests/support/shortage.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/com/fake_bag.h"
#include "tests/windows/stage/variants.h"
#include "windows/com/class_factory.h"
#include "windows/com/runtime.h"

namespace tests {
namespace {

class Robustness : public ControlTest {};

/// Calls of every method that gives a result, without a place for it.
std::vector<std::pair<const char*, HRESULT>> callsWithoutPlaces(const com::Ptr<IUnknown>& control) {
    const auto page = control.as<IctlPPE>();
    const auto host = control.as<PropertyPage>();
    const auto object = control.as<IOleObject>();
    const auto events = control.as<IOleControl>();
    const auto inPlace = control.as<IOleInPlaceObject>();
    const auto active = control.as<IOleInPlaceActiveObject>();
    const auto view = control.as<IViewObject2>();
    const auto stream = control.as<IPersistStreamInit>();
    const auto bag = control.as<IPersistPropertyBag>();
    const auto points = control.as<IConnectionPointContainer>();
    const auto info = control.as<IProvideClassInfo>();
    com::Ptr<IConnectionPoint> point;
    points->FindConnectionPoint(IID_IPropertyNotifySink, point.out());
    DWORD number = 0;
    return {
        {"get_BackColor", page->get_BackColor(nullptr)},
        {"get_ForeColor", page->get_ForeColor(nullptr)},
        {"get_Enabled", page->get_Enabled(nullptr)},
        {"get_Font", page->get_Font(nullptr)},
        {"get_BackStyle", page->get_BackStyle(nullptr)},
        {"get_BorderStyle", page->get_BorderStyle(nullptr)},
        {"get_Loading", page->get_Loading(nullptr)},
        {"get_Caption", page->get_Caption(nullptr)},
        {"get_Dirty", page->get_Dirty(nullptr)},
        {"GetPageInfo", page->GetPageInfo(nullptr, nullptr)},
        {"PropertyPage::get_Dirty", host->get_Dirty(nullptr)},
        {"PropertyPage::GetPageInfo", host->GetPageInfo(nullptr, nullptr)},
        {"GetTypeInfoCount", page->GetTypeInfoCount(nullptr)},
        {"GetTypeInfo", page->GetTypeInfo(0, 0, nullptr)},
        {"GetIDsOfNames", page->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr)},
        {"Invoke", page->Invoke(0x2102, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)},
        {"GetClientSite", object->GetClientSite(nullptr)},
        {"GetMoniker", object->GetMoniker(0, 0, nullptr)},
        {"GetClipboardData", object->GetClipboardData(0, nullptr)},
        {"EnumVerbs", object->EnumVerbs(nullptr)},
        {"GetUserClassID", object->GetUserClassID(nullptr)},
        {"GetUserType", object->GetUserType(USERCLASSTYPE_FULL, nullptr)},
        {"SetExtent", object->SetExtent(DVASPECT_CONTENT, nullptr)},
        {"GetExtent", object->GetExtent(DVASPECT_CONTENT, nullptr)},
        {"Advise", object->Advise(nullptr, &number)},
        {"Advise (cookie)", object->Advise(nullptr, nullptr)},
        {"EnumAdvise", object->EnumAdvise(nullptr)},
        {"GetMiscStatus", object->GetMiscStatus(DVASPECT_CONTENT, nullptr)},
        {"GetControlInfo", events->GetControlInfo(nullptr)},
        {"OnMnemonic", events->OnMnemonic(nullptr)},
        {"GetWindow", inPlace->GetWindow(nullptr)},
        {"SetObjectRects", inPlace->SetObjectRects(nullptr, nullptr)},
        {"TranslateAccelerator", active->TranslateAccelerator(nullptr)},
        {"Draw",
         view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0)},
        {"IViewObject2::GetExtent", view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr)},
        {"GetClassID", stream->GetClassID(nullptr)},
        {"Load (stream)", stream->Load(nullptr)},
        {"Save (stream)", stream->Save(nullptr, TRUE)},
        {"GetSizeMax", stream->GetSizeMax(nullptr)},
        {"Load (bag)", bag->Load(nullptr, nullptr)},
        {"Save (bag)", bag->Save(nullptr, TRUE, TRUE)},
        {"EnumConnectionPoints", points->EnumConnectionPoints(nullptr)},
        {"FindConnectionPoint", points->FindConnectionPoint(IID_IPropertyNotifySink, nullptr)},
        {"GetConnectionInterface", point->GetConnectionInterface(nullptr)},
        {"GetConnectionPointContainer", point->GetConnectionPointContainer(nullptr)},
        {"IConnectionPoint::Advise", point->Advise(nullptr, &number)},
        {"EnumConnections", point->EnumConnections(nullptr)},
        {"GetClassInfo", info->GetClassInfo(nullptr)},
    };
}

// Statement 40: without a place for the result every method fails, alive or ended.
TEST_F(Robustness, CallsWithoutAPlaceForTheResultFail) {
    createActive();
    for (const auto& [method, result] : callsWithoutPlaces(control)) EXPECT_TRUE(FAILED(result)) << method;
    container.acceptAnything();
    close();
    for (const auto& [method, result] : callsWithoutPlaces(control)) EXPECT_TRUE(FAILED(result)) << method;
}

// What needs the page fails after its end. The page's contract and the stored properties answer on: the host
// gets success from Apply in every state, and values live as long as the object.
TEST_F(Robustness, CallsThatNeedThePageFailAfterItsEnd) {
    createActive();
    container.acceptAnything();
    close();
    CONTROLINFO information{};
    MSG message{};
    HWND found = nullptr;
    EXPECT_TRUE(FAILED(as<IOleControl>()->GetControlInfo(&information)));
    EXPECT_TRUE(FAILED(as<IOleControl>()->OnMnemonic(&message)));
    EXPECT_TRUE(FAILED(as<IOleInPlaceObject>()->GetWindow(&found)));
    EXPECT_TRUE(FAILED(as<IOleInPlaceObject>()->SetObjectRects(&container.position, nullptr)));
    EXPECT_EQ(as<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_FALSE);
    EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    OLE_COLOR colour = 1;
    EXPECT_EQ(as<IctlPPE>()->get_BackColor(&colour), S_OK);
}

/// Runs `call` with the first, second, ... allocation failing until it succeeds; each failing run must say
/// so.
template <class Call>
void starve(const char* method, Call call) {
    for (long allocations = 0; allocations < 500; ++allocations) {
        allocationsLeft = allocations;
        const HRESULT result = call();
        allocationsLeft = -1;
        if (SUCCEEDED(result)) return;
        ASSERT_EQ(result, E_OUTOFMEMORY) << method << ", allocation " << allocations;
    }
    FAIL() << method << " never succeeds";
}

/// A control of this program instead of the library's, so that its memory can be made scarce.
class Shortage : public Robustness {
protected:
    Shortage() {
        auto* factory = new com::ClassFactory;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, control.outVoid()), S_OK);
        factory->Release();
        container.acceptAnything();
    }
    ~Shortage() override {
        end();
        EXPECT_TRUE(win::ModuleReference::none());
        EXPECT_TRUE(com::Runtime::shutDown());
    }
};

TEST_F(Shortage, EveryMethodThatAllocatesSaysThatMemoryIsOut) {
    const auto page = as<IctlPPE>();
    const auto object = as<IOleObject>();
    const auto points = as<IConnectionPointContainer>();
    const auto point = notifications();
    starve("SetClientSite", [&] { return object->SetClientSite(container.site()); });
    starve("DoVerb", [&] { return doVerb(OLEIVERB_UIACTIVATE); });
    com::Bstr caption;
    com::Ptr<ITypeInfo> types;
    starve("Caption", [&] { return page->get_Caption(caption.out()); });
    starve("GetTypeInfo", [&] { return page->GetTypeInfo(0, 0, types.out()); });
    starve("GetClassInfo", [&] { return as<IProvideClassInfo>()->GetClassInfo(types.out()); });
    starve("Save", [&] {
        com::Ptr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, stream.out());
        return as<IPersistStreamInit>()->Save(stream.get(), TRUE);
    });
    ULARGE_INTEGER size{};
    com::Ptr<IEnumConnectionPoints> allPoints;
    com::Ptr<IEnumConnections> allConnections;
    CONTROLINFO keys{};
    starve("GetSizeMax", [&] { return as<IPersistStreamInit>()->GetSizeMax(&size); });
    starve("EnumConnectionPoints", [&] { return points->EnumConnectionPoints(allPoints.out()); });
    starve("EnumConnections", [&] { return point->EnumConnections(allConnections.out()); });
    starve("GetControlInfo", [&] { return as<IOleControl>()->GetControlInfo(&keys); });
    starve("put_BackColor", [&] { return page->put_BackColor(3); });
    starve("Close", [&] { return object->Close(OLECLOSE_NOSAVE); });
}

// The host gets success from Apply whatever happens inside; no shortage may end the process.
TEST_F(Shortage, ApplyWithMemoryOutAtAnyAllocationComesToItsEnd) {
    put(container.ambients[DISPID_AMBIENT_DISPLAYNAME], text(SysAllocString(L"a name that needs memory")));
    enterSite();
    const auto page = as<IctlPPE>();
    for (long allocations = 0; allocations < 300; ++allocations) {
        allocationsLeft = allocations;
        const HRESULT result = page->Apply();
        allocationsLeft = -1;
        ASSERT_EQ(result, S_OK) << "allocation " << allocations;
    }
}

TEST_F(Shortage, AnAdviseSaysThatMemoryIsOut) {
    class Sink : public Local<IPropertyNotifySink> {
        STDMETHODIMP OnChanged(DISPID) override { return S_OK; }
        STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
    } sink;
    const auto point = notifications();
    DWORD cookie = 0;
    starve("Advise", [&] { return point->Advise(&sink, &cookie); });
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

// A failing allocation anywhere in the page's making leaves no control, no window and no reference.
TEST_F(Robustness, AControlThatCannotBeMadeLeavesNothing) {
    auto* factory = new com::ClassFactory;
    void* out = nullptr;
    for (const long allocations : {0L, 1L, 2L, 5L, 10L, 20L}) {
        allocationsLeft = allocations;
        const HRESULT result = factory->CreateInstance(nullptr, IID_IUnknown, &out);
        allocationsLeft = -1;
        EXPECT_EQ(result, E_OUTOFMEMORY) << allocations;
        EXPECT_EQ(out, nullptr);
    }
    factory->Release();
    EXPECT_TRUE(win::ModuleReference::none());
    EXPECT_TRUE(com::Runtime::shutDown());
}

}  // namespace
}  // namespace tests
