// The control in its container: site, verbs, places, drawing, the end.
#include "page/ctlPPE.ids.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/com/fake_bag.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

class Activation : public ControlTest {};

RECT placeIn(HWND parent, HWND window) {
    RECT place = placeOf(window);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

class FakeSink : public Local<IAdviseSink> {
public:
    int closed = 0;
    int saved = 0;
    int viewChanged = 0;
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { ADD_FAILURE(); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++viewChanged; }
    STDMETHODIMP_(void) OnRename(IMoniker*) override { ADD_FAILURE(); }
    STDMETHODIMP_(void) OnSave() override { ++saved; }
    STDMETHODIMP_(void) OnClose() override { ++closed; }
};

// --- Site -------------------------------------------------------------------------------------------------

// Statement 20: the control keeps its site, and nothing of it when the site is taken away.
TEST_F(Activation, KeepsItsSiteAndGivesItBack) {
    create();
    const auto object = as<IOleObject>();
    ASSERT_EQ(object->SetClientSite(container.site()), S_OK);
    EXPECT_GT(container.references(), 1u);
    const ULONG held = container.references();
    ASSERT_EQ(object->SetClientSite(container.site()), S_OK);
    EXPECT_EQ(container.references(), held);
    com::Ptr<IOleClientSite> site;
    ASSERT_EQ(object->GetClientSite(site.out()), S_OK);
    EXPECT_EQ(site.get(), container.site());
    EXPECT_EQ(container.references(), held + 1);
    site.reset();
    ASSERT_EQ(object->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(container.references(), 1u);
    ASSERT_EQ(object->GetClientSite(site.out()), S_OK);
    EXPECT_FALSE(site);
}

TEST_F(Activation, MovesFromOneSiteToAnother) {
    createActive();
    FakeContainer other(window);
    other.acceptAnything();
    container.expect({"OnInPlaceDeactivate"});
    ASSERT_EQ(as<IOleObject>()->SetClientSite(other.site()), S_OK);
    container.verify();
    EXPECT_EQ(container.references(), 1u);
    ASSERT_EQ(as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, other.site(), 0, window, nullptr), S_OK);
    EXPECT_TRUE(IsWindowVisible(frame()));
    leaveSite();
    EXPECT_EQ(other.references(), 1u);
}

// Statement 21: every offer of a container is optional.
TEST_F(Activation, WorksInAContainerThatOffersLittle) {
    container.lacks = {"IDispatch", "IOleControlSite", "IOleInPlaceFrame", "PropertyPageSite",
                       "IOleInPlaceSiteEx"};
    createWithSite();
    container.expect({"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"});
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    container.expect({"OnUIActivate"});
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    container.expect({"OnUIDeactivate", "OnInPlaceDeactivate"});
    ASSERT_EQ(deactivate(), S_OK);
}

TEST_F(Activation, WorksInAContainerThatImplementsNothing) {
    container.usualAnswer = E_NOTIMPL;
    container.acceptAnything();
    createWithSite();
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(IsWindowVisible(frame()));
    const RECT place = placeIn(window, frame());
    EXPECT_TRUE(EqualRect(&place, &container.position));
}

TEST_F(Activation, NeedsASite) {
    create();
    EXPECT_TRUE(FAILED(doVerb(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_EQ(frame(), nullptr);
}

// --- Verbs ------------------------------------------------------------------------------------------------

// Statement 22: the order of the activation, the window's place; a second one does nothing; a no is obeyed.
TEST_F(Activation, ShowsThePageInTheContainersWindow) {
    createActive();
    EXPECT_EQ(GetParent(frame()), window);
    EXPECT_TRUE(IsWindowVisible(frame()));
    EXPECT_TRUE(IsWindowVisible(page()));
    const RECT place = placeIn(window, frame());
    EXPECT_TRUE(EqualRect(&place, &container.position));
    const RECT inner = placeOf(page());
    EXPECT_EQ(inner.right - inner.left, 400);
    EXPECT_EQ(inner.bottom - inner.top, 360);
    const HWND before = frame();
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(frame(), before);
}

TEST_F(Activation, StaysOutWhereTheContainerRefuses) {
    createWithSite();
    container.answers["CanInPlaceActivate"] = S_FALSE;
    container.expect({"CanInPlaceActivate"});
    EXPECT_TRUE(FAILED(doVerb(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_EQ(frame(), nullptr);
    container.answers.clear();
    container.expect({"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext"});
    EXPECT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
}

// Statement 23: the active object, told once each way.
TEST_F(Activation, BecomesAndCeasesToBeTheActiveObject) {
    createActive();
    SetForegroundWindow(window);
    container.expect({"OnUIActivate", "SetActiveObject", "OnFocus(TRUE)"});
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    container.expect({"SetActiveObject(NULL)", "OnFocus(FALSE)", "OnUIDeactivate"});
    ASSERT_EQ(as<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    ASSERT_EQ(as<IOleInPlaceObject>()->UIDeactivate(), S_OK);
}

TEST_F(Activation, PlainActivationDoesNotTakeTheFocus) {
    SetForegroundWindow(window);
    SetFocus(window);
    createActive();
    EXPECT_EQ(GetFocus(), window);
}

// Statement 24: deactivating, again and again, keeps what the page holds.
TEST_F(Activation, LeavesTheContainersWindowAndComesBackWithItsState) {
    createActive();
    const HWND pageWindow = page();
    EnableWindow(child(IDC_cmdWizard), FALSE);
    container.expect({"OnUIActivate", "SetActiveObject", "OnFocus(TRUE)"});
    SetForegroundWindow(window);
    ASSERT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    const HWND first = frame();
    container.expect({"SetActiveObject(NULL)", "OnFocus(FALSE)", "OnUIDeactivate", "OnInPlaceDeactivate"});
    ASSERT_EQ(deactivate(), S_OK);
    container.verify();
    EXPECT_FALSE(IsWindow(first));
    EXPECT_EQ(frame(), nullptr);
    EXPECT_TRUE(IsWindow(pageWindow));
    ASSERT_EQ(deactivate(), S_OK);
    container.expect({"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext"});
    ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(page(), pageWindow);
    EXPECT_FALSE(IsWindowEnabled(child(IDC_cmdWizard)));
}

// Statement 25: the other verbs.
TEST_F(Activation, HidesAndShows) {
    createActive();
    ASSERT_EQ(doVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(IsWindowVisible(frame()));
    ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(frame()));
}

TEST_F(Activation, UnknownVerbsAreToldByTheirCodes) {
    createActive();
    EXPECT_EQ(doVerb(17), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(doVerb(OLEIVERB_OPEN), E_NOTIMPL);
    EXPECT_EQ(doVerb(-99), E_NOTIMPL);
}

TEST_F(Activation, VerbsAfterTheEndFail) {
    createActive();
    container.expect({"OnInPlaceDeactivate"});
    ASSERT_EQ(close(), S_OK);
    for (const LONG verb : {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_UIACTIVATE, OLEIVERB_HIDE})
        EXPECT_TRUE(FAILED(doVerb(verb)));
}

// Statement 26: places.
TEST_F(Activation, FollowsTheContainersRectangles) {
    createActive();
    const auto object = as<IOleInPlaceObject>();
    const RECT wanted{30, 40, 530, 440};
    const RECT clip{0, 0, 330, 1000};
    ASSERT_EQ(object->SetObjectRects(&wanted, &clip), S_OK);
    const RECT seen = placeIn(window, frame());
    const RECT visible{30, 40, 330, 440};
    EXPECT_TRUE(EqualRect(&seen, &visible));
    const RECT inner = placeOf(page());
    EXPECT_EQ(inner.right - inner.left, 500);
    // The rows stretch to the page's width, less the margin at both ends.
    const RECT line = placeOf(child(IDC_lneWizard));
    EXPECT_EQ(inner.right - line.right, line.left - inner.left);
}

TEST_F(Activation, EmptyAndReversedRectanglesDoNoHarm) {
    createActive();
    const auto object = as<IOleInPlaceObject>();
    for (const RECT& wanted :
         {RECT{0, 0, 0, 0}, RECT{10, 10, -50, -50}, RECT{-32000, -32000, -31000, -31000}})
        EXPECT_EQ(object->SetObjectRects(&wanted, &wanted), S_OK);
    EXPECT_EQ(object->SetObjectRects(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(object->SetObjectRects(&container.position, nullptr), S_OK);
    const RECT seen = placeIn(window, frame());
    EXPECT_TRUE(EqualRect(&seen, &container.position));
}

TEST_F(Activation, KeepsItsExtentInHimetric) {
    create();
    SIZEL size{};
    ASSERT_EQ(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_GT(size.cx, 2540);  // more than an inch: the size of the page's template
    SIZEL wanted{7938, 5292};
    ASSERT_EQ(as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &wanted), S_OK);
    ASSERT_EQ(as<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size), S_OK);
    EXPECT_EQ(size.cx, 7938);
    EXPECT_EQ(size.cy, 5292);
    EXPECT_EQ(as<IOleObject>()->SetExtent(DVASPECT_ICON, &wanted), DV_E_DVASPECT);
    EXPECT_EQ(as<IOleObject>()->GetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
}

// --- Drawing ----------------------------------------------------------------------------------------------

// Statement 27: draws itself inactive and active, in bitmaps and metafiles; tells viewers of a new size.
TEST_F(Activation, DrawsIntoBitmapsAndMetafiles) {
    createWithSite();
    const RECTL bounds{0, 0, 100, 50};
    const HDC screen = GetDC(nullptr);
    container.acceptAnything();
    const auto draw = [&](HDC canvas, DWORD aspect = DVASPECT_CONTENT) {
        return as<IViewObject2>()->Draw(aspect, -1, nullptr, nullptr, nullptr, canvas, &bounds, nullptr,
                                        nullptr, 0);
    };
    for (const bool active : {false, true}) {
        if (active) {
            ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
        }
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 50);
        const HGDIOBJ previous = SelectObject(memory, bitmap);
        PatBlt(memory, 0, 0, 100, 50, BLACKNESS);
        EXPECT_EQ(draw(memory), S_OK);
        EXPECT_EQ(GetPixel(memory, 1, 1), GetSysColor(COLOR_BTNFACE));
        DeleteObject(SelectObject(memory, previous));
        DeleteDC(memory);
        const HDC metafile = CreateEnhMetaFileW(screen, nullptr, nullptr, nullptr);
        EXPECT_EQ(draw(metafile), S_OK);
        DeleteEnhMetaFile(CloseEnhMetaFile(metafile));
    }
    ReleaseDC(nullptr, screen);
    EXPECT_EQ(draw(nullptr, DVASPECT_ICON), DV_E_DVASPECT);
}

TEST_F(Activation, TellsItsViewerOfANewSize) {
    create();
    FakeSink sink;
    const auto view = as<IViewObject2>();
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &sink), S_OK);
    EXPECT_EQ(sink.viewChanged, 1);
    DWORD aspect = 0;
    DWORD flags = 0;
    com::Ptr<IAdviseSink> told;
    ASSERT_EQ(view->GetAdvise(&aspect, &flags, told.out()), S_OK);
    EXPECT_EQ(told.get(), &sink);
    EXPECT_EQ(flags, static_cast<DWORD>(ADVF_PRIMEFIRST));
    told.reset();
    SIZEL size{5000, 4000};
    as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(sink.viewChanged, 2);
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
    EXPECT_EQ(sink.references(), 1u);
}

// --- The end ----------------------------------------------------------------------------------------------

// Statement 28: closing deactivates, takes the windows away and tells the sinks.
TEST_F(Activation, ClosingEndsThePageAndTellsTheSinks) {
    createActive();
    FakeSink sink;
    DWORD cookie = 0;
    ASSERT_EQ(as<IOleObject>()->Advise(&sink, &cookie), S_OK);
    const HWND frameWindow = frame();
    const HWND pageWindow = page();
    container.expect({"OnInPlaceDeactivate"});
    ASSERT_EQ(close(), S_OK);
    EXPECT_EQ(sink.closed, 1);
    EXPECT_FALSE(IsWindow(frameWindow));
    EXPECT_FALSE(IsWindow(pageWindow));
    EXPECT_EQ(as<IOleObject>()->Unadvise(cookie), S_OK);
}

TEST_F(Activation, ClosingSavesWhatIsDirtyWhereTheContainerWants) {
    createWithSite();
    as<IctlPPE>()->put_BackColor(5);
    container.expect({"SaveObject"});
    ASSERT_EQ(as<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
}

TEST_F(Activation, WithdrawsItsHandleOnce) {
    const std::wstring key = L"Software\\Norvane\\Quillmark\\";
    create();
    EXPECT_TRUE(registry.get(key, L"hWndProperties").has_value());
    close();
    EXPECT_FALSE(registry.get(key, L"hWndProperties").has_value());
    registry.put(key, L"hWndProperties", 1);
    close();
    end();
    EXPECT_TRUE(registry.get(key, L"hWndProperties").has_value());
}

// Statement 29: every order of ends, and ends left out.
TEST_F(Activation, IsReleasedWithoutBeingClosed) {
    createActive();
    container.expect({"OnInPlaceDeactivate"});
    EXPECT_EQ(control.detach()->Release(), 0u);
}

TEST_F(Activation, IsClosedTwice) {
    createActive();
    container.expect({"OnInPlaceDeactivate"});
    EXPECT_EQ(close(), S_OK);
    EXPECT_EQ(close(), S_OK);
}

TEST_F(Activation, LosesItsSiteWithoutBeingClosed) {
    createActive();
    container.expect({"OnInPlaceDeactivate"});
    EXPECT_EQ(leaveSite(), S_OK);
    EXPECT_EQ(control.detach()->Release(), 0u);
}

TEST_F(Activation, OutlivesItsContainersWindow) {
    createActive();
    const HWND pageWindow = page();
    DestroyWindow(window);
    EXPECT_EQ(frame(), nullptr);
    EXPECT_TRUE(IsWindow(pageWindow));
    EXPECT_FALSE(dirty());
    window = createContainerWindow();
    FakeContainer next(window);
    next.acceptAnything();
    as<IOleObject>()->SetClientSite(next.site());
    EXPECT_EQ(as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, next.site(), 0, window, nullptr), S_OK);
    EXPECT_EQ(page(), pageWindow);
    end();
}

// An activation that ends half-way is taken back at the container.
TEST_F(Activation, TellsTheContainerOfAnActivationThatFails) {
    createWithSite();
    container.moveTo(nullptr);
    container.acceptAnything();
    container.forget();
    EXPECT_TRUE(
        FAILED(as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, container.site(), 0, nullptr, nullptr)));
    EXPECT_EQ(container.count("OnInPlaceActivateEx") + container.count("OnInPlaceActivate"), 1);
    EXPECT_EQ(container.count("OnInPlaceDeactivate"), 1);
    container.moveTo(window);
}

// Statement 30: the host takes everything away while a dialog of the page is open.
class EndDuringDialog : public Activation {
protected:
    /// Opens the highlight settings and runs `act` once the dialog is there; returns when the dialog has
    /// ended.
    void withDialog(const std::function<void()>& act) {
        createActive();
        container.acceptAnything();
        inDialog(IDC_cmdDispMatches, [&](HWND) { act(); });
    }
};

TEST_F(EndDuringDialog, ClosingEndsTheDialog) {
    withDialog([&] { EXPECT_EQ(close(), S_OK); });
    end();
}

TEST_F(EndDuringDialog, TakingTheSiteEndsTheDialog) {
    withDialog([&] { EXPECT_EQ(leaveSite(), S_OK); });
    end();
}

TEST_F(EndDuringDialog, DestroyingTheContainersWindowEndsTheDialog) {
    withDialog([&] { DestroyWindow(window); });
    end();
}

TEST_F(EndDuringDialog, TheLastReleaseWaitsForTheDialog) {
    withDialog([&] {
        close();
        leaveSite();
        EXPECT_GT(control.detach()->Release(), 0u) << "the running handler keeps the control";
    });
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

// The container's modeless windows are disabled while the dialog runs and enabled again, whatever ends it.
TEST_F(EndDuringDialog, AsksForModelessWindowsInPairs) {
    withDialog([&] {
        EXPECT_EQ(container.count("EnableModeless(FALSE)"), 1);
        EXPECT_EQ(container.count("EnableModeless(TRUE)"), 0);
        EXPECT_EQ(leaveSite(), S_OK);
    });
    EXPECT_EQ(container.count("EnableModeless(FALSE)"), 1);
    EXPECT_EQ(container.count("EnableModeless(TRUE)"), 1);
}

// Containers of the common frameworks disable their root with their modeless windows. Where the dialog hid
// before the root is enabled again, the system would activate another program's window.
TEST_F(EndDuringDialog, GivesActivationAndFocusBackToAContainerThatDisablesItsRoot) {
    createActive();
    container.acceptAnything();
    const HWND other = createContainerWindow();
    HWND dialog = nullptr;
    bool dialogWasThere = false;
    container.during["EnableModeless(FALSE)"] = [&] { EnableWindow(window, FALSE); };
    container.during["EnableModeless(TRUE)"] = [&] {
        dialogWasThere = IsWindowVisible(dialog) != FALSE;
        EnableWindow(window, TRUE);
    };
    SetActiveWindow(window);
    SetFocus(child(IDC_cmdDispMatches));
    inDialog(IDC_cmdDispMatches, [&](HWND found) {
        dialog = found;
        SendMessageW(found, WM_CLOSE, 0, 0);
    });
    EXPECT_TRUE(dialogWasThere);
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(GetFocus(), child(IDC_cmdDispMatches));
    container.during.clear();
    DestroyWindow(other);
}

// --- A container that reacts inside the control's calls ---------------------------------------------------
// The whole table of calls and reactions stands in the tests of the hostile world; these are its plain cases.

class Reactions : public Activation {
protected:
    Reactions() { container.acceptAnything(); }
    void react(const char* call, const std::function<void()>& reaction) {
        container.during[call] = [this, call, reaction] {
            container.during.erase(call);
            reaction();
        };
    }
};

TEST_F(Reactions, AnActivationThatIsEndedInsideHasFailedAndIsTakenBackOnce) {
    createWithSite();
    for (const char* call :
         {"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext", "UIDEAD"}) {
        container.forget();
        react(call, [&] { deactivate(); });
        EXPECT_TRUE(FAILED(doVerb(OLEIVERB_SHOW))) << call;
        EXPECT_EQ(frame(), nullptr) << call;
        EXPECT_EQ(container.count("OnInPlaceDeactivate"), container.count("OnInPlaceActivateEx")) << call;
        EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK) << call;
        deactivate();
    }
}

TEST_F(Reactions, AnActivationInsideAnotherIsRefusedAndTheOuterOneGoesOn) {
    createWithSite();
    for (const char* call : {"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "GetWindowContext"}) {
        container.forget();
        HRESULT inner = S_OK;
        react(call, [&] { inner = doVerb(OLEIVERB_SHOW); });
        EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK) << call;
        EXPECT_TRUE(FAILED(inner)) << call;
        EXPECT_EQ(container.count("OnInPlaceActivateEx"), 1) << call;
        deactivate();
    }
}

TEST_F(Reactions, AnActivityThatIsEndedInsideHasFailedAndLeavesNoActiveObject) {
    createWithSite();
    for (const char* call : {"OnUIActivate", "SetActiveObject"}) {
        container.forget();
        react(call, [&] { as<IOleInPlaceObject>()->UIDeactivate(); });
        EXPECT_TRUE(FAILED(doVerb(OLEIVERB_UIACTIVATE))) << call;
        EXPECT_EQ(container.count("OnUIActivate"), container.count("OnUIDeactivate")) << call;
        EXPECT_GE(container.count("SetActiveObject(NULL)"), container.count("SetActiveObject")) << call;
        EXPECT_NE(frame(), nullptr) << call;
    }
}

TEST_F(Reactions, AnActivationThatIsEndedAndBegunAgainInsideIsTrue) {
    createWithSite();
    react("OnUIActivate", [&] {
        deactivate();
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    });
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_NE(frame(), nullptr);
    EXPECT_EQ(container.count("OnUIActivate"), 2);
    EXPECT_EQ(container.count("OnUIDeactivate"), 1);
}

TEST_F(Reactions, ClosingInsideAnActivationEndsIt) {
    for (const char* call : {"OnInPlaceActivateEx", "UIDEAD", "OnUIActivate", "SetActiveObject"}) {
        createWithSite();
        react(call, [&] { close(); });
        EXPECT_TRUE(FAILED(doVerb(OLEIVERB_UIACTIVATE))) << call;
        EXPECT_EQ(frame(), nullptr) << call;
        end();
    }
}

TEST_F(Reactions, TheLastReleaseInsideAnActivationWaitsForItsEnd) {
    createWithSite();
    IOleObject* object = as<IOleObject>().get();  // the control's own reference is the host's only one
    react("OnUIActivate", [&] { EXPECT_GT(control.detach()->Release(), 0u); });
    object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, container.site(), 0, window, &container.position);
    EXPECT_EQ(container.references(), 1u);
    EXPECT_EQ(container.count("OnInPlaceDeactivate"), 1);
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST_F(Reactions, AContainerThatShowsTheControlWhenItClosesIsLeftAllTheSame) {
    createWithSite();
    ASSERT_EQ(doVerb(OLEIVERB_SHOW), S_OK);
    react("OnInPlaceDeactivate", [&] { EXPECT_EQ(doVerb(OLEIVERB_SHOW), S_OK); });
    EXPECT_EQ(close(), S_OK);
    EXPECT_EQ(frame(), nullptr);
    EXPECT_EQ(container.count("OnInPlaceDeactivate"), container.count("OnInPlaceActivateEx"));
}

// --- What is active while others are called ---------------------------------------------------------------

HANDLE activationContext() {
    HANDLE current = nullptr;
    GetCurrentActCtx(&current);
    if (current != nullptr) ReleaseActCtx(current);
    return current;
}

// The control's own activation context is its own business: others make their windows and load their
// libraries in theirs.
TEST_F(Reactions, OthersAreCalledInTheirOwnActivationContext) {
    const HANDLE own = activationContext();
    int calls = 0;
    const auto check = [&] {
        ++calls;
        EXPECT_EQ(activationContext(), own);
    };
    addIn.during = [&](const std::string&) { check(); };
    createWithSite();
    for (const char* call :
         {"CanInPlaceActivate", "OnInPlaceActivateEx", "GetWindow", "UIDEAD", "OnUIActivate"})
        container.during[call] = check;
    EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
    inDialog(IDC_cmdDispMatches, [&](HWND dialog) {
        check();
        SendMessageW(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_GT(calls, 6);
    addIn.during = nullptr;
    container.during.clear();
}

}  // namespace
}  // namespace tests
