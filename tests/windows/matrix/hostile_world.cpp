#include "tests/windows/matrix/hostile_world.h"

#include <ocidl.h>

#include <utility>

#include "tests/windows/com/fake_bag.h"
#include "tests/windows/stage/ticker.h"
#include "workbench/world/imports.h"

namespace tests {
namespace {

constexpr wchar_t ROOT[] = L"Software\\Norvane\\Quillmark";
constexpr wchar_t PROFILE[] = L"Software\\Norvane\\Quillmark\\";
constexpr UINT TICK = 10;                 // milliseconds
constexpr ULONGLONG TIME_TO_CLOSE = 300;  // milliseconds
constexpr ULONGLONG PATIENCE = 15000;     // milliseconds

constexpr std::pair<const char*, const char*> PAIRS[] = {{"EnableModeless(FALSE)", "EnableModeless(TRUE)"},
                                                         {"OnInPlaceActivateEx", "OnInPlaceDeactivate"},
                                                         {"OnUIActivate", "OnUIDeactivate"},
                                                         {"OnFocus(TRUE)", "OnFocus(FALSE)"}};

/// Closes a dialog as its user does, and answers a question by its refusal.
void dismiss(HWND dialog) {
    for (const WORD command : {IDNO, IDCANCEL, IDOK})
        if (IsWindowEnabled(GetDlgItem(dialog, command)))
            return void(PostMessageW(dialog, WM_COMMAND, command, 0));
    PostMessageW(dialog, WM_CLOSE, 0, 0);
}

/// The page's start waits longer than all the rest of it takes.
void WINAPI takeNoTime(DWORD) { SwitchToThread(); }

}  // namespace

// --- Whom the control calls -------------------------------------------------------------------------------

/// The host's sinks: of properties, of the view, of the object.
class HostileWorld::Sink : public Local<IPropertyNotifySink> {
public:
    explicit Sink(HostileWorld& world) : world_(world), view(*this) {}
    STDMETHODIMP OnChanged(DISPID) override { return called("OnChanged"); }
    STDMETHODIMP OnRequestEdit(DISPID) override { return called("OnRequestEdit"); }

private:
    HRESULT called(const char* call) {
        world_.called(call);
        return S_OK;
    }
    struct View : Local<IAdviseSink> {
        explicit View(Sink& sink) : whole(sink) {}
        Sink& whole;
        STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
        STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { whole.called("OnViewChange"); }
        STDMETHODIMP_(void) OnRename(IMoniker*) override {}
        STDMETHODIMP_(void) OnSave() override { whole.called("OnSave"); }
        STDMETHODIMP_(void) OnClose() override { whole.called("OnClose"); }
    };
    HostileWorld& world_;

public:
    View view;
};

HostileWorld::HostileWorld() {
    workbench::replaceImports(GetModuleHandleW(L"VexaPPE.ocx"),
                              {{"Sleep", reinterpret_cast<void*>(takeNoTime)}});
    container.acceptAnything();
    container.onCall = [this](const std::string& call) { called(call); };
    addIn.during = [this](const std::string& call) { called(call); };
    registry.put(ROOT, L"hWndSearchCtl",
                 static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(searchWindow_.window())));
    registry.put(ROOT, L"SendTo", L"help@example.org");
    registry.put(PROFILE, L"VexaBaseDir", baseFolder_.path());
    for (const wchar_t* name : {L"Mail", L"News"})
        registry.put(PROFILE + std::wstring(L"\\") + name, L"KBDocuments",
                     5);  // without any there is nothing to rebuild
    furnish();
}

/// What the page and its dialogs change.
void HostileWorld::furnish() {
    registry.put(PROFILE, L"ProjectCount", 2);
    registry.put(PROFILE, L"Project1", L"Mail");
    registry.put(PROFILE, L"Project2", L"News");
    registry.put(PROFILE, L"Projectname", L"Mail");
    registry.put(PROFILE, L"DefaultProject", L"Mail");
    registry.remove(PROFILE, L"KBProcessState");
}

/// What a page reads at its start alone.
bool HostileWorld::isFurnished() const {
    return registry.get(PROFILE, L"DefaultProject") == vexa::Value(L"Mail");
}

HostileWorld::~HostileWorld() { finish(); }

void HostileWorld::called(const std::string& call) {
    heard_.insert(call);
    verifyOrder(call);
    const auto found = armed_.find(call);
    if (found == armed_.end()) return;
    const auto reaction = std::move(found->second);
    armed_.erase(found);
    reaction();
}

// --- The control ------------------------------------------------------------------------------------------

void HostileWorld::verb(LONG wanted) {
    const IUnknown* const before = control.get();
    const HRESULT answer =
        object()->DoVerb(wanted, nullptr, container.site(), 0, window, &container.position);
    if (control.get() != before) return;
    const bool shown = frame() != nullptr && (GetWindowLongW(frame(), GWL_STYLE) & WS_VISIBLE) != 0;
    EXPECT_TRUE(shown || FAILED(answer) || wanted == OLEIVERB_HIDE) << "verb " << wanted;
    EXPECT_TRUE(!shown || SUCCEEDED(answer) || wanted == OLEIVERB_UIACTIVATE) << "verb " << wanted;
}

void HostileWorld::connectSinks() {
    sink_ = std::make_unique<Sink>(*this);
    DWORD cookie = 0;
    EXPECT_EQ(notifications()->Advise(sink_.get(), &cookie), S_OK);
    EXPECT_EQ(as<IOleObject>()->Advise(&sink_->view, &cookie), S_OK);
    EXPECT_EQ(as<IViewObject2>()->SetAdvise(DVASPECT_CONTENT, 0, &sink_->view), S_OK);
}

void HostileWorld::prepare() {
    disarm();
    if (!IsWindow(window)) {
        finish();
        window = createContainerWindow();
        container.moveTo(window);
    }
    if (isThere() && (!isFurnished() || !bringIn())) finish();
    furnish();
    if (isThere()) return;
    create();
    connectSinks();
    EXPECT_TRUE(bringIn());
}

/// False where the page has ended.
bool HostileWorld::bringIn() {
    enterSite();
    return SUCCEEDED(doVerb(OLEIVERB_UIACTIVATE));
}

void HostileWorld::finish() {
    disarm();
    if (control) end();
    pump();
    EXPECT_EQ(library.canUnloadNow(), S_OK) << "something of the control is left";
    EXPECT_EQ(container.references(), 1u) << "the control keeps its container";
    EXPECT_EQ(addIn.sinks(), 0u) << "the control has not ended a connection";
    verifyPairs();
    container.forget();
    sink_.reset();
}

/// What the container was told of a beginning it was told of the end of; but for its window, whose end it
/// knows.
void HostileWorld::verifyPairs() const {
    for (const auto& [beginning, ending] : PAIRS) {
        const bool needsWindow = std::string(beginning) != "EnableModeless(FALSE)";
        if (needsWindow && !IsWindow(window)) continue;
        EXPECT_EQ(container.count(beginning), container.count(ending)) << beginning << ", " << ending;
    }
}

/// No end comes before its beginning.
void HostileWorld::verifyOrder(const std::string& call) const {
    for (const auto& [beginning, ending] : PAIRS) {
        if (call != ending) continue;
        EXPECT_GE(container.count(beginning), container.count(ending)) << call;
    }
}

// --- Playing ----------------------------------------------------------------------------------------------

void HostileWorld::pump() {
    bool quit = false;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        quit = quit || message.message == WM_QUIT;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (quit) PostQuitMessage(0);
}

/// Presses the next button once its dialog is there, then acts, then closes what is open. Runs inside the
/// dialogs' own loops, which nobody else would end: what does not come about is given up.
void HostileWorld::step() {
    if (situation_ == nullptr) return;
    const std::vector<HWND> dialogs = openDialogs();
    if (act_ != nullptr && GetTickCount64() - began_ > PATIENCE) {
        ADD_FAILURE() << "the situation did not come about: " << pressed_ << " buttons pressed, "
                      << dialogs.size() << " dialogs open";
        act_ = nullptr;
    }
    if (act_ == nullptr ? dismissNext(dialogs) : goDeeper(dialogs)) goOn();
}

/// False where it has to wait, as in the others.
bool HostileWorld::goDeeper(const std::vector<HWND>& dialogs) {
    if (pressed_ == situation_->buttons.size()) {
        if (dialogs.size() != situation_->depth) return false;
        actedAt_ = GetTickCount64();
        (*std::exchange(act_, nullptr))();
        return true;
    }
    const HWND parent = pressed_ == 0 ? pageWindow() : dialogs.empty() ? nullptr : dialogs.back();
    const int button = situation_->buttons[pressed_];
    if (GetDlgItem(parent, button) == nullptr) return false;
    ++pressed_;
    press(parent, button);
    return true;
}

/// Leaves what has been provoked time to come. Asked to close again and again without a pause, a page that
/// lets pending events run would never come to their end.
bool HostileWorld::dismissNext(const std::vector<HWND>& dialogs) {
    const ULONGLONG now = GetTickCount64();
    if (!armed_.empty() && now - actedAt_ < timeToCome) return false;
    if (dialogs.empty() || (dialogs.back() == dismissed_ && now - dismissedAt_ < TIME_TO_CLOSE)) return false;
    dismissed_ = dialogs.back();
    dismissedAt_ = now;
    dismiss(dismissed_);
    return true;
}

void HostileWorld::play(const Situation& situation, const std::function<void()>& act) {
    situation_ = &situation;
    act_ = &act;
    pressed_ = 0;
    dismissed_ = nullptr;
    began_ = GetTickCount64();
    const Ticker ticker(TICK, [this] { step(); });
    goOn();
    do {
        pump();
        MsgWaitForMultipleObjectsEx(0, nullptr, TICK, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    } while (act_ != nullptr || !openDialogs().empty());
    pump();
    situation_ = nullptr;
}

void HostileWorld::verifyAtRest() {
    MSG quit;
    while (PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) continue;
    EXPECT_TRUE(openDialogs().empty());
    if (IsWindow(window)) {
        EXPECT_TRUE(IsWindowEnabled(window));
    }
    EXPECT_EQ(addIn.sinks(), 0u) << "a dialog's connection is left";
    EXPECT_TRUE(HeapValidate(GetProcessHeap(), 0, nullptr));
}

}  // namespace tests
