#include "tests/windows/matrix/tables.h"

#include <thread>

#include "kb/frmKBConfiguration.ids.h"
#include "kb/frmKnowledgeBase.ids.h"
#include "page/ctlPPE.ids.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmDispMatches.ids.h"
#include "settings/frmSettings.ids.h"
#include "tests/windows/com/fake_bag.h"
#include "ui/dialog_ids.h"

namespace tests {
namespace {

using World = HostileWorld;

// Its place among the situations.
constexpr std::size_t KNOWLEDGEBASES = 2;

constexpr UINT_PTR POLL = 1;  // the page's only timer

// --- Provocations -----------------------------------------------------------------------------------------

void activateAnew(World& world) {
    world.inPlace()->InPlaceDeactivate();
    if (world.isThere()) world.verb(OLEIVERB_SHOW);
}

void uiActivateAnew(World& world) {
    world.inPlace()->UIDeactivate();
    if (world.isThere()) world.verb(OLEIVERB_UIACTIVATE);
}

void uiDeactivate(World& world) { world.inPlace()->UIDeactivate(); }

void apply(World& world) { world.raw<PropertyPage>()->Apply(); }

void initNew(World& world) { world.raw<IPersistPropertyBag>()->InitNew(); }

void setColour(World& world) {
    static OLE_COLOR colour = 0;
    world.raw<IctlPPE>()->put_BackColor(++colour);
}

void setExtent(World& world) {
    static SIZEL size{5000, 5000};
    ++size.cx;
    world.object()->SetExtent(DVASPECT_CONTENT, &size);
}

void closeAndSave(World& world) { world.object()->Close(OLECLOSE_SAVEIFDIRTY); }

void leaveSite(World& world) { world.object()->SetClientSite(nullptr); }

void pressKey(World& world) {
    const HWND page = world.pageWindow();
    MSG key{GetDlgItem(page, IDC_cmdSettings), WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    world.raw<IOleInPlaceActiveObject>()->TranslateAccelerator(&key);
}

void poll(World& world) { SendMessageW(world.pageWindow(), WM_TIMER, POLL, 0); }

/// Opens a dialog where none is open; where one is, its end makes the call.
void openDialog(World& world) {
    if (world.openDialogs().empty()) world.press(world.pageWindow(), IDC_cmdDispMatches);
}

void openKnowledgebases(World& world) {
    if (world.openDialogs().empty()) world.press(world.pageWindow(), IDC_cmdKnowledgeBase);
}

// --- Preparations -----------------------------------------------------------------------------------------

/// An edit that the page tells its host of when the next dialog closes, too: the flag stays until Apply.
void edit(World& world, const std::vector<int>& path, int box) {
    const Situation dialog{"an edit", path, 1};
    world.play(dialog, [&] {
        const HWND found = world.openDialogs().back();
        SendMessageW(GetDlgItem(found, box), BM_CLICK, 0, 0);
        PostMessageW(GetDlgItem(found, IDC_cmdOk), BM_CLICK, 0, 0);
    });
}

void editHighlights(World& world) { edit(world, {IDC_cmdDispMatches}, IDC_chkKeepHighlights); }

void editLogging(World& world) { edit(world, {IDC_cmdSettings}, IDC_chkLoggingInformation); }

/// Chooses another entry of a combo of the search settings.
std::function<void(World&)> chooseOther(int combo) {
    return [combo](World& world) {
        const Situation dialog{"a choice", {IDC_cmdSettings}, 1};
        world.play(dialog, [&] {
            const HWND found = world.openDialogs().back();
            const HWND box = GetDlgItem(found, combo);
            const LRESULT other = SendMessageW(box, CB_GETCURSEL, 0, 0) == 0 ? 1 : 0;
            SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(other), 0);
            SendMessageW(found, WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
            PostMessageW(GetDlgItem(found, IDC_cmdOk), BM_CLICK, 0, 0);
        });
    };
}

// --- Reactions --------------------------------------------------------------------------------------------

/// A reaction that the control must be there for.
template <class Act>
std::function<void(World&)> on(Act act) {
    return [act](World& world) {
        if (world.isThere()) act(world);
    };
}

void raiseOnAnotherThread(World& world) {
    std::thread([&] { world.runningAddIn().raiseProcessFinished(L"Mail", false); }).join();
}

void disableAndEnableRoot(World& world) {
    EnableWindow(world.hostWindow(), FALSE);
    EnableWindow(world.hostWindow(), TRUE);
}

}  // namespace

const std::vector<Situation>& situations() {
    static const std::vector<Situation> all{
        {"nothing open", {}, 0},
        {"the highlight settings", {IDC_cmdDispMatches}, 1, {IDD_frmDispMatches}},
        {"the knowledgebases", {IDC_cmdKnowledgeBase}, 1, {IDD_frmKBConfiguration}},
        {"a question", {IDC_cmdKnowledgeBase, IDC_KB_cmdRemove}, 2},
        {"the search settings", {IDC_cmdSettings}, 1, {IDD_frmSettings}},
        {"the attachment settings", {IDC_cmdAttachments}, 1, {IDD_frmAttachment}},
        {"the base folder",
         {IDC_cmdKnowledgeBase, IDC_cmdBaseFolder},
         2,
         {IDD_frmKBConfiguration, IDD_frmKnowledgeBase}},
        {"the report", {IDC_cmdSettings, IDC_cmdSendLog}, 2},
    };
    return all;
}

const std::vector<Call>& calls() {
    static const std::vector<Call> all{
        {"QueryInterface IOleInPlaceSite", {}, activateAnew},
        {"CanInPlaceActivate", {}, activateAnew},
        {"OnInPlaceActivateEx", {}, activateAnew},
        {"GetWindow", {}, activateAnew},
        {"GetWindowContext", {}, activateAnew},
        {"UIDEAD", {}, activateAnew},
        {"OnInPlaceDeactivate", {}, activateAnew},
        {"OnUIActivate", {}, uiActivateAnew},
        {"SetActiveObject", {}, uiActivateAnew},
        {"OnFocus(TRUE)", {}, uiActivateAnew},
        {"SetActiveObject(NULL)", {}, uiDeactivate},
        {"OnFocus(FALSE)", {}, uiDeactivate},
        {"OnUIDeactivate", {}, uiDeactivate},
        {"EnableModeless(FALSE)", {}, openDialog},
        {"EnableModeless(TRUE)", {}, openDialog},
        {"TranslateAccelerator", {}, pressKey},
        {"OnStatusChange", editHighlights, openDialog},
        {"DISPLAYNAME", {}, apply},
        {"FONT", {}, initNew},
        {"OnRequestEdit", {}, setColour},
        {"OnChanged", {}, setColour},
        {"OnViewChange", {}, setExtent},
        {"SaveObject", setColour, closeAndSave},
        {"OnSave", setColour, closeAndSave},
        {"OnClose", {}, closeAndSave},
        {"Release", {}, leaveSite},
        {"IsSearching", {}, poll},
        {"IsProcessing", {}, poll},
        {"SetLogging", editLogging, apply},
        {"SetFindShortcut", chooseOther(IDC_cboSearchShortcut), apply},
        {"SetDefaultKnowledgebase", chooseOther(IDC_cboDefaultKB), apply},
        {"EnumConnectionPoints", {}, openKnowledgebases, KNOWLEDGEBASES},
        {"GetConnectionInterface", {}, openKnowledgebases, KNOWLEDGEBASES},
        {"Advise", {}, openKnowledgebases, KNOWLEDGEBASES},
        {"Unadvise", {}, openKnowledgebases, KNOWLEDGEBASES},
    };
    return all;
}

const std::vector<Reaction>& reactions() {
    static const std::vector<Reaction> all{
        {"InPlaceDeactivate", on([](World& world) { world.inPlace()->InPlaceDeactivate(); })},
        {"UIDeactivate", on([](World& world) { world.inPlace()->UIDeactivate(); })},
        {"Close", on([](World& world) { world.object()->Close(OLECLOSE_NOSAVE); })},
        {"SetClientSite(NULL)", on([](World& world) { world.object()->SetClientSite(nullptr); })},
        {"DoVerb(SHOW)", on([](World& world) { world.verb(OLEIVERB_SHOW); })},
        {"DoVerb(HIDE)", on([](World& world) { world.verb(OLEIVERB_HIDE); })},
        {"the last Release", on([](World& world) { world.releaseLast(); })},
        {"pumping messages", [](World&) { World::pump(); }},
        {"ProcessFinished", [](World& world) { world.runningAddIn().raiseProcessFinished(L"Mail", false); }},
        {"ProcessFinished on another thread", raiseOnAnotherThread},
        {"disabling and enabling the root", disableAndEnableRoot},
        {"WM_QUIT", [](World&) { PostQuitMessage(0); }},
        {"the end of the root", [](World& world) { DestroyWindow(world.hostWindow()); }},
    };
    return all;
}

}  // namespace tests
