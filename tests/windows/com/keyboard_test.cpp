// The page's keys, in a container that asks for them.
#include <map>
#include <set>

#include "page/ctlPPE.ids.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/user.h"
#include "tests/windows/stage/variants.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

const int BUTTONS[] = {IDC_cmdKnowledgeBase, IDC_cmdSettings, IDC_cmdAttachments, IDC_cmdDispMatches,
                       IDC_cmdWizard};

class Keyboard : public ControlTest {
protected:
    Keyboard() {
        createActive();
        container.acceptAnything();
        SetForegroundWindow(window);
        EXPECT_EQ(doVerb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_EQ(GetFocus(), child(IDC_cmdKnowledgeBase));
    }

    HRESULT key(UINT message, WPARAM key, HWND to = GetFocus()) {
        MSG pressed{};
        pressed.hwnd = to;
        pressed.message = message;
        pressed.wParam = key;
        return as<IOleInPlaceActiveObject>()->TranslateAccelerator(&pressed);
    }
    HRESULT pressAccessKey(wchar_t letter) {
        MSG pressed{};
        pressed.message = WM_SYSCHAR;
        pressed.wParam = letter;
        return as<IOleControl>()->OnMnemonic(&pressed);
    }
    /// The number of what the page has told the add-in's search window last.
    [[nodiscard]] std::optional<vexa::Value> lastEvent() const {
        return registry.get(L"Software\\Norvane\\Quillmark\\", L"ProjectEvent");
    }
};

// Statement 31: the dialog manager finds its way in and out of the page.
TEST_F(Keyboard, ContainersOfTheChainLetTheDialogManagerThrough) {
    for (const HWND each : {frame(), page()}) {
        EXPECT_NE(GetWindowLongW(each, GWL_EXSTYLE) & WS_EX_CONTROLPARENT, 0);
        EXPECT_EQ(GetWindowLongW(each, GWL_STYLE) & (WS_TABSTOP | WS_GROUP), 0);
    }
}

TEST_F(Keyboard, TabReachesEachButtonOnceForwardsAndBackwards) {
    HWND focus = child(BUTTONS[0]);
    for (std::size_t i = 1; i <= std::size(BUTTONS); ++i) {
        focus = GetNextDlgTabItem(page(), focus, FALSE);
        EXPECT_EQ(focus, child(BUTTONS[i % std::size(BUTTONS)]));
    }
    for (std::size_t i = std::size(BUTTONS); i-- > 0;) {
        focus = GetNextDlgTabItem(page(), focus, TRUE);
        EXPECT_EQ(focus, child(BUTTONS[i]));
    }
}

TEST_F(Keyboard, IdentifiersAndAccessKeysAreUnique) {
    std::set<int> identifiers;
    for (const HWND each : descendantsOf(page()))
        EXPECT_TRUE(identifiers.insert(GetDlgCtrlID(each)).second) << GetDlgCtrlID(each);
    CONTROLINFO information{};
    information.cb = sizeof information;
    ASSERT_EQ(as<IOleControl>()->GetControlInfo(&information), S_OK);
    std::vector<ACCEL> keys(information.cAccel);
    CopyAcceleratorTableW(information.hAccel, keys.data(), information.cAccel);
    std::set<WORD> letters;
    for (const ACCEL& each : keys) EXPECT_TRUE(letters.insert(each.key).second) << each.key;
    EXPECT_EQ(letters.size(), std::size(BUTTONS));
}

// Statement 32: access keys, told and pressed. Captions never change, so the table never does.
TEST_F(Keyboard, TellsItsAccessKeys) {
    CONTROLINFO information{};
    information.cb = 77;
    EXPECT_EQ(as<IOleControl>()->GetControlInfo(nullptr), E_POINTER);
    ASSERT_EQ(as<IOleControl>()->GetControlInfo(&information), S_OK);
    EXPECT_EQ(information.cb, 77u);
    EXPECT_EQ(information.dwFlags, 0u);
    EXPECT_EQ(information.cAccel, std::size(BUTTONS));
    const HACCEL table = information.hAccel;
    ASSERT_EQ(as<IOleControl>()->GetControlInfo(&information), S_OK);
    EXPECT_EQ(information.hAccel, table);
}

TEST_F(Keyboard, AnAccessKeyPressesItsButton) {
    ASSERT_EQ(pressAccessKey(L'w'), S_OK);
    EXPECT_EQ(GetFocus(), child(IDC_cmdWizard));
    EXPECT_EQ(lastEvent(), vexa::Value(6));
}

TEST_F(Keyboard, AnAccessKeyOfADisabledButtonDoesNothing) {
    EnableWindow(child(IDC_cmdWizard), FALSE);
    ASSERT_EQ(pressAccessKey(L'W'), S_OK);
    EXPECT_FALSE(lastEvent().has_value());
}

// A page's dialog disables its root; a container that is dead to the user disables the page's frame.
TEST_F(Keyboard, AnAccessKeyDoesNothingWhileAnAncestorIsDisabled) {
    for (const HWND ancestor : {window, frame()}) {
        EnableWindow(ancestor, FALSE);
        ASSERT_EQ(pressAccessKey(L'W'), S_OK);
        EnableWindow(ancestor, TRUE);
    }
    EXPECT_FALSE(lastEvent().has_value());
}

// Statement 33: the page uses Tab and the arrows, and leaves everything else to the container.
TEST_F(Keyboard, TabMovesThroughThePageAndLeavesItAtTheEnd) {
    container.answers["TranslateAccelerator"] = S_FALSE;
    for (std::size_t i = 1; i < std::size(BUTTONS); ++i) {
        EXPECT_EQ(key(WM_KEYDOWN, VK_TAB), S_OK);
        EXPECT_EQ(GetFocus(), child(BUTTONS[i]));
    }
    EXPECT_EQ(container.count("TranslateAccelerator"), 0);
    EXPECT_EQ(key(WM_KEYDOWN, VK_TAB), S_FALSE);
    EXPECT_EQ(container.count("TranslateAccelerator"), 1);
    container.answers["TranslateAccelerator"] = S_OK;
    EXPECT_EQ(key(WM_KEYDOWN, VK_TAB), S_OK);
}

TEST_F(Keyboard, ShiftTabLeavesThePageAtItsStart) {
    container.answers["TranslateAccelerator"] = E_NOTIMPL;
    const HeldKeys shift(ui::modifier::shift);
    EXPECT_EQ(key(WM_KEYDOWN, VK_TAB), S_FALSE);
    EXPECT_EQ(container.count("TranslateAccelerator"), 1);
}

TEST_F(Keyboard, EnterAndEscBelongToTheContainer) {
    container.answers["TranslateAccelerator"] = S_FALSE;
    EXPECT_EQ(key(WM_KEYDOWN, VK_RETURN), S_FALSE);
    EXPECT_EQ(key(WM_KEYDOWN, VK_ESCAPE), S_FALSE);
    EXPECT_EQ(container.count("TranslateAccelerator"), 2);
    EXPECT_TRUE(IsWindowVisible(frame()));
}

TEST_F(Keyboard, AccessKeysWithAltAreUsedWhereAButtonHasThem) {
    EXPECT_EQ(key(WM_SYSCHAR, L'w'), S_OK);
    EXPECT_EQ(GetFocus(), child(IDC_cmdWizard));
    EXPECT_EQ(key(WM_SYSCHAR, L'o'), S_FALSE);
}

TEST_F(Keyboard, OtherMessagesAreNotItsOwn) {
    EXPECT_EQ(key(WM_MOUSEMOVE, 0), S_FALSE);
    EXPECT_EQ(key(WM_KEYDOWN, VK_TAB, window), S_FALSE);
    EXPECT_TRUE(FAILED(as<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr)));
}

TEST_F(Keyboard, AMessageToCloseLeavesThePageAlive) {
    for (const HWND each : {page(), frame()}) {
        PostMessageW(each, WM_CLOSE, 0, 0);
        deliverMessages();
        EXPECT_TRUE(IsWindow(each));
        EXPECT_TRUE(IsWindowVisible(each));
    }
}

TEST_F(Keyboard, TheFocusIsToldWhenItComesAndGoes) {
    const int came = container.count("OnFocus(TRUE)");
    SetFocus(window);
    EXPECT_EQ(container.count("OnFocus(FALSE)"), 1);
    SetFocus(child(IDC_cmdSettings));
    EXPECT_EQ(container.count("OnFocus(TRUE)"), came + 1);
    SetFocus(child(IDC_cmdAttachments));
    EXPECT_EQ(container.count("OnFocus(TRUE)"), came + 1);
}

// Statement 34. Where the behaviour of the page is fixed it holds: the stored and ambient appearance changes
// nothing of the page, and it works whatever the user mode is.
TEST_F(Keyboard, AmbientChangesRepaintAndFollowTheDeadContainer) {
    for (const DISPID each : {DISPID_AMBIENT_FONT, DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_USERMODE, 4711}) {
        UpdateWindow(page());
        ValidateRect(page(), nullptr);
        EXPECT_EQ(as<IOleControl>()->OnAmbientPropertyChange(each), S_OK);
        EXPECT_TRUE(GetUpdateRect(page(), nullptr, FALSE)) << each;
    }
    put(container.ambients[DISPID_AMBIENT_UIDEAD], flag(true));
    as<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD);
    EXPECT_FALSE(IsWindowEnabled(frame()));
    put(container.ambients[DISPID_AMBIENT_UIDEAD], flag(false));
    as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    EXPECT_TRUE(IsWindowEnabled(frame()));
}

}  // namespace
}  // namespace tests
