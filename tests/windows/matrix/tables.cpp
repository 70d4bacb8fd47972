#include "tests/windows/matrix/tables.h"

#include <commctrl.h>

#include <thread>

#include "kb/frmKBConfiguration.ids.h"
#include "kb/frmKnowledgeBase.ids.h"
#include "kb/frmNewFolder.ids.h"
#include "kb/frmSelectDefaultKB.ids.h"
#include "page/ctlPPE.ids.h"
#include "report/frmSendBugReport.ids.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmDispMatches.ids.h"
#include "settings/frmSettings.ids.h"
#include "tests/windows/matrix/hostile_storage.h"
#include "ui/dialog_ids.h"

namespace tests {
namespace {

using World = HostileWorld;

constexpr UINT_PTR POLL = 1;      // the page's only timer
constexpr WORD SEND = 1;          // the report's first button
constexpr WPARAM WIZARD_ON = 20;  // the key by which the add-in offers the wizard

/// Tells the dialogs of an end, whenever their thread hears of it.
void raiseOnAnotherThread(World& world) {
    std::thread([&] { world.runningAddIn().raiseProcessFinished(L"Mail", false); }).join();
}

/// A control of the innermost dialog; null where none is open.
HWND inInnermost(int control) {
    const std::vector<HWND> dialogs = openDialogs();
    return dialogs.empty() ? nullptr : GetDlgItem(dialogs.back(), control);
}

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

void enterSiteAnew(World& world) {
    world.object()->SetClientSite(nullptr);
    if (world.isThere()) world.object()->SetClientSite(world.host().site());
}

void closeAndSave(World& world) { world.object()->Close(OLECLOSE_SAVEIFDIRTY); }

void leaveSite(World& world) { world.object()->SetClientSite(nullptr); }

void pressKey(World& world) {
    const HWND page = world.pageWindow();
    MSG key{GetDlgItem(page, IDC_cmdSettings), WM_KEYDOWN, VK_RETURN, 1, 0, {}};
    world.raw<IOleInPlaceActiveObject>()->TranslateAccelerator(&key);
}

/// Until the page asks: after a rule that took some time it leaves it out for nine times as long.
void poll(World& world) {
    constexpr ULONGLONG UNTIL_IT_ASKS = 5000;  // milliseconds
    const ULONGLONG end = GetTickCount64() + UNTIL_IT_ASKS;
    SendMessageW(world.pageWindow(), WM_TIMER, POLL, 0);
    while (world.isArmed() && world.pageWindow() != nullptr && GetTickCount64() < end) {
        Sleep(10);
        SendMessageW(world.pageWindow(), WM_TIMER, POLL, 0);
    }
}

/// Opens a dialog where none is open. Its beginning or its end makes the call.
std::function<void(World&)> openAndClose(int button) {
    return [button](World& world) {
        if (openDialogs().empty()) world.press(world.pageWindow(), button);
        world.waitNoLonger();
    };
}

/// Presses a button of the innermost dialog.
std::function<void(World&)> inDialog(int button) {
    return [button](World&) {
        if (const HWND found = inInnermost(button)) PostMessageW(found, BM_CLICK, 0, 0);
    };
}

/// Ends the naming of a knowledgebase, where one is being named.
void enterName(World&) {
    const HWND list = inInnermost(IDC_sftKBConfiguration);
    const auto editor = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETEDITCONTROL, 0, 0));
    SetWindowTextW(editor, L"Post");
    if (editor != nullptr) PostMessageW(editor, WM_KEYDOWN, VK_RETURN, 1);
}

void removeAndFinish(World& world) {
    // On another thread, so that it is heard when the command has been handed over.
    world.arm("NotifyKbRemoved", [&] { raiseOnAnotherThread(world); });
    inDialog(IDYES)(world);
}

void sendReport(World&) {
    if (const HWND toolbar = inInnermost(IDC_tbrBugReport))
        PostMessageW(GetParent(toolbar), WM_COMMAND, SEND, reinterpret_cast<LPARAM>(toolbar));
}

void startWizard(World& world) {
    SendMessageW(GetDlgItem(world.pageWindow(), IDC_cmdMsg), WM_KEYDOWN, WIZARD_ON, 1);
    if (world.pageWindow() != nullptr) world.press(world.pageWindow(), IDC_cmdWizard);
}

void loadBag(World& world) {
    HostileBag bag(world);
    HostileErrorLog log(world);
    world.raw<IPersistPropertyBag>()->Load(&bag, &log);
}

void saveBag(World& world) {
    HostileBag bag(world);
    world.raw<IPersistPropertyBag>()->Save(&bag, TRUE, TRUE);
}

void loadStream(World& world) {
    HostileStream stream(world);
    world.raw<IPersistStreamInit>()->Load(&stream);
}

void saveStream(World& world) {
    HostileStream stream(world);
    world.raw<IPersistStreamInit>()->Save(&stream, TRUE);
}

// --- Preparations -----------------------------------------------------------------------------------------

/// An edit that the page tells its host of when the next dialog closes, too: the flag stays until Apply.
void edit(World& world, const std::vector<int>& path, int box) {
    const Situation dialog{"an edit", path, 1};
    world.play(dialog, [&] {
        SendMessageW(inInnermost(box), BM_CLICK, 0, 0);
        PostMessageW(inInnermost(IDC_cmdOk), BM_CLICK, 0, 0);
    });
}

void editHighlights(World& world) { edit(world, {IDC_cmdDispMatches}, IDC_chkKeepHighlights); }

void editLogging(World& world) { edit(world, {IDC_cmdSettings}, IDC_chkLoggingInformation); }

/// Chooses another entry of a combo of the search settings.
std::function<void(World&)> chooseOther(int combo) {
    return [combo](World& world) {
        const Situation dialog{"a choice", {IDC_cmdSettings}, 1};
        world.play(dialog, [&] {
            const HWND box = inInnermost(combo);
            const LRESULT other = SendMessageW(box, CB_GETCURSEL, 0, 0) == 0 ? 1 : 0;
            SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(other), 0);
            SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(box));
            PostMessageW(inInnermost(IDC_cmdOk), BM_CLICK, 0, 0);
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

void disableAndEnableRoot(World& world) {
    EnableWindow(world.hostWindow(), FALSE);
    EnableWindow(world.hostWindow(), TRUE);
}

}  // namespace

const std::vector<Situation>& situations() {
    static const std::vector<Situation> all{
        {"nothing open", {}, 0},
        {"the highlight settings", {IDC_cmdDispMatches}, 1, {IDD_frmDispMatches}},
        {"the colour chooser", {IDC_cmdDispMatches, IDC_lblSelHotspotColor}, 2},
        {"the search settings", {IDC_cmdSettings}, 1, {IDD_frmSettings}},
        {"the attachment settings", {IDC_cmdAttachments}, 1, {IDD_frmAttachment}},
        {"the report", {IDC_cmdSettings, IDC_cmdSendLog}, 2, {IDD_frmSettings, IDD_frmSendBugReport}},
        {"the knowledgebases", {IDC_cmdKnowledgeBase}, 1, {IDD_frmKBConfiguration}},
        {"a new name", {IDC_cmdKnowledgeBase, IDC_KB_cmdAdd}, 1},
        {"another name", {IDC_cmdKnowledgeBase, IDC_cmdRename}, 1},
        {"a question", {IDC_cmdKnowledgeBase, IDC_KB_cmdRemove}, 2},
        {"the choice of the auto-update knowledgebase",
         {IDC_cmdKnowledgeBase, IDC_KB_cmdRemove, IDYES},
         2,
         {IDD_ctlPPE, IDD_frmKBConfiguration, IDD_frmSelectDefaultKB}},
        {"the base folder",
         {IDC_cmdKnowledgeBase, IDC_cmdBaseFolder},
         2,
         {IDD_frmKBConfiguration, IDD_frmKnowledgeBase}},
        {"a new folder",
         {IDC_cmdKnowledgeBase, IDC_cmdBaseFolder, IDC_cmdNewDirectory},
         3,
         {IDD_frmKBConfiguration, IDD_frmKnowledgeBase, IDD_frmNewFolder}},
    };
    return all;
}

std::vector<Situation> ownDialogs() {
    std::vector<Situation> own = situations();
    std::erase_if(own, [](const Situation& each) { return each.templates.empty(); });
    return own;
}

std::string situationName(const testing::TestParamInfo<Situation>& situation) {
    std::string name = situation.param.name;
    std::erase_if(name, [](char each) { return !std::isalnum(static_cast<unsigned char>(each)); });
    return name;
}

const std::vector<Call>& calls() {
    static const std::vector<Call> all{
        {"QueryInterface IOleInPlaceSite", {}, activateAnew},
        {"QueryInterface IOleInPlaceSiteEx", {}, activateAnew},
        {"QueryInterface IOleControlSite", {}, activateAnew},
        {"QueryInterface PropertyPageSite", {}, enterSiteAnew},
        {"QueryInterface IDispatch", {}, apply},
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
        {"OnFocus(FALSE)", {}, uiDeactivate, {NOTHING_OPEN}},
        {"OnUIDeactivate", {}, uiDeactivate},
        {"EnableModeless(FALSE)", {}, openAndClose(IDC_cmdDispMatches), {NOTHING_OPEN}},
        {"EnableModeless(TRUE)", {}, openAndClose(IDC_cmdDispMatches)},
        {"TranslateAccelerator", {}, pressKey},
        {"OnStatusChange", editHighlights, openAndClose(IDC_cmdDispMatches)},
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
        // Without logging there is no report to be sent, and a knowledgebase that is no longer the
        // auto-update one leaves no choice behind.
        {"SetLogging", editLogging, apply, STANDARD, {REPORT}},
        {"SetFindShortcut", chooseOther(IDC_cboSearchShortcut), apply},
        {"SetDefaultKnowledgebase", chooseOther(IDC_cboDefaultKB), apply, STANDARD, {AUTO_UPDATE_CHOOSER}},
        {"EnumConnectionPoints", {}, openAndClose(IDC_cmdKnowledgeBase), {NOTHING_OPEN}},
        {"GetConnectionInterface", {}, openAndClose(IDC_cmdKnowledgeBase), {NOTHING_OPEN}},
        {"Advise", {}, openAndClose(IDC_cmdKnowledgeBase), {NOTHING_OPEN}},
        {"Unadvise", {}, openAndClose(IDC_cmdKnowledgeBase), {NOTHING_OPEN, KNOWLEDGEBASES}},
        {"IsAutoUpdateRunning", {}, inDialog(IDC_cmdRebuild), {KNOWLEDGEBASES}},
        {"NotifyKbRebuild", {}, inDialog(IDC_cmdRebuild), {KNOWLEDGEBASES}},
        {"NotifyKbUpdate", {}, inDialog(IDC_cmdUpdate), {KNOWLEDGEBASES}},
        {"NotifyKbAdded", {}, enterName, {NEW_NAME}},
        {"NotifyKbRenamed", {}, enterName, {OTHER_NAME}},
        {"NotifyKbRemoved", {}, inDialog(IDYES), {QUESTION}},
        {"SendMail", {}, sendReport, {REPORT}},
        {"message 1127", {}, startWizard, {NOTHING_OPEN}},
        {"message 1139", {}, inDialog(IDC_cmdEdit), {KNOWLEDGEBASES}},
        {"message 256", {}, removeAndFinish, {QUESTION}},
        {"a bag's Read", {}, loadBag},
        {"a bag's Write", {}, saveBag},
        {"AddError", {}, loadBag},
        {"a stream's Read", {}, loadStream},
        {"a stream's Write", {}, saveStream},
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
