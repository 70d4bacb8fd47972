// The contract with the host that shows the page: status changes, Apply, help, notifications of properties.
#include "page/ctlPPE.ids.h"
#include "settings/frmDispMatches.ids.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/com/fake_bag.h"
#include "ui/dialog_ids.h"

namespace tests {
namespace {

constexpr wchar_t KEY[] = L"Software\\Norvane\\Quillmark\\";

class Host : public ControlTest {
protected:
    /// Opens the highlight settings, toggles a setting and presses OK, as a user does.
    void editHighlights() {
        inDialog(IDC_cmdDispMatches, [](HWND dialog) {
            SendMessageW(GetDlgItem(dialog, IDC_chkKeepHighlights), BM_CLICK, 0, 0);
            SendMessageW(GetDlgItem(dialog, IDC_cmdOk), BM_CLICK, 0, 0);
        });
    }
    void editShownPage() {
        createActive();
        container.acceptAnything();
        editHighlights();
    }
};

// Statement 35: the host hears of the first edit, and finds the page dirty at that moment.
TEST_F(Host, HearsOfAnEditAndFindsThePageDirtyThen) {
    createActive();
    EXPECT_FALSE(dirty());
    bool dirtyThen = false;
    container.during["OnStatusChange"] = [&] { dirtyThen = dirty(); };
    container.acceptAnything();
    editHighlights();
    EXPECT_EQ(container.count("OnStatusChange"), 1);
    EXPECT_TRUE(dirtyThen);
}

TEST_F(Host, HearsNothingWhileThePageStarts) {
    createWithSite();
    EXPECT_EQ(container.count("OnStatusChange"), 0);
    EXPECT_FALSE(dirty());
}

TEST_F(Host, PageWorksWithoutAPropertyPageSite) {
    container.lacks = {"PropertyPageSite"};
    editShownPage();
    EXPECT_TRUE(dirty());
}

// Statement 36, where the page's behaviour differs: Apply writes every value each time, changed or not, and
// always succeeds towards the host; a failing store is skipped quietly.
TEST_F(Host, ApplyWritesTheSettingsAndClearsTheMark) {
    editShownPage();
    EXPECT_FALSE(registry.get(KEY, L"KeepHighlights").has_value());
    EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
    EXPECT_TRUE(registry.get(KEY, L"KeepHighlights").has_value());
    EXPECT_FALSE(dirty());
}

TEST_F(Host, ApplyOfACleanPageThatWasNeverActiveWritesAllTheSame) {
    create();
    EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
    EXPECT_TRUE(registry.get(KEY, L"MaxEntries").has_value());
    EXPECT_FALSE(dirty());
}

TEST_F(Host, CancellingWritesNoSetting) {
    editShownPage();
    end();
    EXPECT_FALSE(registry.get(KEY, L"KeepHighlights").has_value());
    EXPECT_FALSE(registry.get(KEY, L"MaxEntries").has_value());
}

// What the page knows lives as long as the object.
TEST_F(Host, ApplyAndDirtyWorkAfterTheEnd) {
    editShownPage();
    close();
    EXPECT_TRUE(dirty());
    EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK);
    EXPECT_TRUE(registry.get(KEY, L"KeepHighlights").has_value());
    EXPECT_FALSE(dirty());
}

// Statement 37: there is no help; a name that comes in is freed.
TEST_F(Host, GetsNoHelpAndItsOldTextIsFreed) {
    create();
    BSTR file = SysAllocString(L"C:\\old.chm");
    long context = 1;
    ASSERT_EQ(as<PropertyPage>()->GetPageInfo(&file, &context), S_OK);
    ASSERT_NE(file, nullptr);
    EXPECT_STREQ(file, L"");
    EXPECT_EQ(context, 0);
    SysFreeString(file);
}

/// Counts what COM allocates and frees.
class AllocationSpy : public Local<IMallocSpy> {
public:
    long living = 0;
    STDMETHODIMP_(SIZE_T) PreAlloc(SIZE_T size) override { return size; }
    STDMETHODIMP_(void*) PostAlloc(void* block) override {
        living += block != nullptr;
        return block;
    }
    STDMETHODIMP_(void*) PreFree(void* block, BOOL) override {
        living -= block != nullptr;
        return block;
    }
    STDMETHODIMP_(void) PostFree(BOOL) override {}
    STDMETHODIMP_(SIZE_T) PreRealloc(void* block, SIZE_T size, void** real, BOOL) override {
        *real = block;
        return size;
    }
    STDMETHODIMP_(void*) PostRealloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(void*) PreGetSize(void* block, BOOL) override { return block; }
    STDMETHODIMP_(SIZE_T) PostGetSize(SIZE_T size, BOOL) override { return size; }
    STDMETHODIMP_(void*) PreDidAlloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(int) PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    STDMETHODIMP_(void) PreHeapMinimize() override {}
    STDMETHODIMP_(void) PostHeapMinimize() override {}
};

TEST_F(Host, LeavesNoTextBehindWhenAskedForHelp) {
    create();
    AllocationSpy spy;
    ASSERT_EQ(CoRegisterMallocSpy(&spy), S_OK);
    for (int round = 0; round < 10; ++round) {
        BSTR file = SysAllocString(L"C:\\old.chm");
        long context = 1;
        as<PropertyPage>()->GetPageInfo(&file, &context);
        SysFreeString(file);
    }
    const long left = spy.living;
    CoRevokeMallocSpy();
    EXPECT_EQ(left, 0);
}

// --- Notifications ----------------------------------------------------------------------------------------

class NotifySink : public Local<IPropertyNotifySink> {
public:
    std::vector<std::pair<char, DISPID>> told;  // 'r' asked, 'c' changed
    HRESULT answer = S_OK;
    std::function<void()> duringChange;
    STDMETHODIMP OnChanged(DISPID member) override {
        told.emplace_back('c', member);
        if (duringChange) duringChange();
        return S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID member) override {
        told.emplace_back('r', member);
        return answer;
    }
};

class Notifications : public ControlTest {
protected:
    Notifications() {
        create();
        point = notifications();
        EXPECT_EQ(point->Advise(&sink, &cookie), S_OK);
    }
    ~Notifications() override {
        point->Unadvise(cookie);
        point.reset();
    }
    using Told = std::vector<std::pair<char, DISPID>>;
    /// Of each of these, one after the other.
    static Told askedAndTold(std::initializer_list<DISPID> members) {
        Told all;
        for (const DISPID member : members) all.insert(all.end(), {{'r', member}, {'c', member}});
        return all;
    }

    com::Ptr<IConnectionPoint> point;
    NotifySink sink;
    DWORD cookie = 0;
};

// Statement 38: asked before, told after; a no is obeyed; each time, also with the value that is there.
TEST_F(Notifications, AskBeforeAndTellAfterEachChange) {
    const auto page = as<IctlPPE>();
    page->put_BackColor(1);
    page->put_ForeColor(1);
    page->put_Enabled(VARIANT_TRUE);
    page->put_BackStyle(1);
    page->put_BorderStyle(1);
    page->put_Loading(VARIANT_TRUE);
    EXPECT_EQ(sink.told, askedAndTold({DISPID_BACKCOLOR, DISPID_FORECOLOR, DISPID_ENABLED, DISPID_BACKSTYLE,
                                       DISPID_BORDERSTYLE, 1}));
    sink.told.clear();
    page->put_BackColor(1);
    page->put_Enabled(42);  // any true
    EXPECT_EQ(sink.told, askedAndTold({DISPID_BACKCOLOR, DISPID_ENABLED}));
}

TEST_F(Notifications, TellOfANewFont) {
    const auto font = makeFont(L"Tahoma");
    EXPECT_EQ(as<IctlPPE>()->put_Font(font.get()), S_OK);
    EXPECT_EQ(sink.told, askedAndTold({DISPID_FONT}));
    com::Ptr<IFontDisp> kept;
    as<IctlPPE>()->get_Font(kept.out());
    EXPECT_NE(kept.get(), font.get()) << "put keeps a copy";
    EXPECT_EQ(as<IctlPPE>()->put_Font(nullptr), S_OK);
    EXPECT_EQ(as<IctlPPE>()->putref_Font(font.get()), S_OK);
    as<IctlPPE>()->get_Font(kept.out());
    EXPECT_EQ(kept.get(), font.get()) << "putref keeps the object";
}

TEST_F(Notifications, ARefusedChangeDoesNotHappen) {
    sink.answer = S_FALSE;
    EXPECT_EQ(as<IctlPPE>()->put_BackColor(9), CTL_E_SETNOTPERMITTED);
    OLE_COLOR colour = 1;
    as<IctlPPE>()->get_BackColor(&colour);
    EXPECT_EQ(colour, 0u);
    EXPECT_EQ(sink.told, (Told{{'r', DISPID_BACKCOLOR}}));
    EXPECT_EQ(as<IPersistStreamInit>()->IsDirty(), S_FALSE);
}

TEST_F(Notifications, ASinkMayLeaveWhileItIsTold) {
    NotifySink other;
    DWORD otherCookie = 0;
    ASSERT_EQ(point->Advise(&other, &otherCookie), S_OK);
    sink.duringChange = [&] {
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
        EXPECT_EQ(point->Unadvise(otherCookie), S_OK);
    };
    as<IctlPPE>()->put_BackColor(2);
    EXPECT_EQ(other.told, askedAndTold({DISPID_BACKCOLOR}));
    as<IctlPPE>()->put_BackColor(3);
    EXPECT_EQ(sink.told.size(), 2u);
}

TEST_F(Notifications, EnumeratorsAreSnapshots) {
    com::Ptr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
    ASSERT_EQ(point->Unadvise(cookie), S_OK);
    CONNECTDATA data{};
    ULONG fetched = 0;
    ASSERT_EQ(connections->Next(1, &data, &fetched), S_OK);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(data.dwCookie, cookie);
    data.pUnk->Release();
    EXPECT_EQ(connections->Next(1, &data, &fetched), S_FALSE);
    EXPECT_EQ(connections->Reset(), S_OK);
    com::Ptr<IEnumConnections> copy;
    EXPECT_EQ(connections->Clone(copy.out()), S_OK);
    EXPECT_EQ(copy->Skip(1), S_OK);
    EXPECT_EQ(copy->Skip(1), S_FALSE);
}

TEST_F(Notifications, ConnectionPointsAreListed) {
    com::Ptr<IEnumConnectionPoints> points;
    ASSERT_EQ(as<IConnectionPointContainer>()->EnumConnectionPoints(points.out()), S_OK);
    com::Ptr<IConnectionPoint> listed;
    ASSERT_EQ(points->Next(1, listed.out(), nullptr), S_OK);
    IID iid{};
    EXPECT_EQ(listed->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, IID_IPropertyNotifySink);
    com::Ptr<IConnectionPointContainer> owner;
    EXPECT_EQ(listed->GetConnectionPointContainer(owner.out()), S_OK);
    EXPECT_EQ(owner.get(), as<IConnectionPointContainer>().get());
    EXPECT_EQ(points->Next(1, listed.out(), nullptr), S_FALSE);
    EXPECT_EQ(as<IConnectionPointContainer>()->FindConnectionPoint(IID_IAdviseSink, listed.out()),
              CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(4711), CONNECT_E_NOCONNECTION);
    DWORD other = 0;
    EXPECT_EQ(point->Advise(&container, &other), CONNECT_E_CANNOTCONNECT);
}

// Statement 34: freezing is counted; what changed meanwhile is told once, at the end.
TEST_F(Notifications, FrozenOnesWaitForTheLastThaw) {
    const auto events = as<IOleControl>();
    events->FreezeEvents(TRUE);
    events->FreezeEvents(TRUE);
    as<IctlPPE>()->put_BackColor(5);
    as<IctlPPE>()->put_BackColor(6);
    events->FreezeEvents(FALSE);
    EXPECT_EQ(sink.told, (Told{{'r', DISPID_BACKCOLOR}, {'r', DISPID_BACKCOLOR}}));
    sink.told.clear();
    events->FreezeEvents(FALSE);
    EXPECT_EQ(sink.told, (Told{{'c', DISPID_BACKCOLOR}}));
    events->FreezeEvents(FALSE);
    as<IctlPPE>()->put_BackColor(7);
    EXPECT_EQ(sink.told.size(), 3u);
}

}  // namespace
}  // namespace tests
