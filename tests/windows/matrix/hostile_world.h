// A host in whose every call something happens: the control under test, everybody whom it calls, and the
// dialogs that it has open.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/listener.h"
#include "tests/windows/stage/scratch_folder.h"
#include "tests/windows/stage/window_queries.h"

namespace tests {

/// What the page has open, by the buttons that lead there: the first on the page, each further one in the
/// innermost dialog; and how many dialogs are open then, one in the other.
struct Situation {
    const char* name = "";
    std::vector<int> buttons = {};
    std::size_t depth = 0;
    /// What the open dialogs are made from, and the page where it has to be a new one each time.
    std::vector<int> templates = {};
};

class HostileWorld : public ControlTest {
public:
    HostileWorld();
    ~HostileWorld() override;

    // --- The control. Null and empty where it is gone; the pointers own nothing, so that the host's one
    // reference is the only one.
    [[nodiscard]] IOleObject* object() const { return raw<IOleObject>(); }
    [[nodiscard]] IOleInPlaceObject* inPlace() const { return raw<IOleInPlaceObject>(); }
    [[nodiscard]] bool isThere() const { return static_cast<bool>(control); }
    template <class Interface>
    [[nodiscard]] Interface* raw() const {
        return control ? control.as<Interface>().get() : nullptr;
    }
    /// Shows a verb's answer to be true. The control may be gone afterwards.
    void verb(LONG verb);
    void releaseLast() { control.reset(); }
    [[nodiscard]] HWND hostWindow() const { return window; }
    [[nodiscard]] HWND pageWindow() const { return isThere() && frame() ? page() : nullptr; }
    [[nodiscard]] RunningAddIn& runningAddIn() { return addIn; }
    [[nodiscard]] FakeContainer& host() { return container; }

    // --- Playing.
    /// Milliseconds for what has been provoked, before what is open is closed.
    ULONGLONG timeToCome = 0;
    /// Brings the page to the host's window, active, with nothing open; a new one where the last has ended.
    void prepare();
    /// Runs `act` in the situation, inside its innermost modal loop, and then ends everything that is open.
    void play(const Situation& situation, const std::function<void()>& act);
    /// The next call of this name runs `reaction` inside it, once.
    void arm(const std::string& call, std::function<void()> reaction) { armed_[call] = std::move(reaction); }
    [[nodiscard]] bool hasReacted(const std::string& call) const { return !armed_.contains(call); }
    [[nodiscard]] bool isArmed() const { return !armed_.empty(); }
    void disarm() { armed_.clear(); }
    /// Somebody whom the control calls has been called.
    void called(const std::string& call);
    /// The calls that have come, by their names.
    [[nodiscard]] const std::set<std::string>& heard() const { return heard_; }
    /// Looks for what must hold between two combinations.
    void verifyAtRest();
    /// Ends the control, and looks for what is left of it.
    void finish();

    /// Dispatches what is pending; the end of the thread's loop stays for whoever has to see it.
    static void pump();
    /// What has been provoked comes at the latest when the dialogs end, which may be now.
    void waitNoLonger() { actedAt_ = 0; }
    /// Presses a button of the page or of a dialog, later.
    void press(HWND parent, int button) const { PostMessageW(GetDlgItem(parent, button), BM_CLICK, 0, 0); }

private:
    class Sink;

    void furnish();
    [[nodiscard]] bool isFurnished() const;
    [[nodiscard]] bool bringIn();
    void connectSinks();
    void verifyPairs() const;
    void verifyOrder(const std::string& call) const;
    void step();
    bool goDeeper(const std::vector<HWND>& dialogs);
    bool dismissNext(const std::vector<HWND>& dialogs);
    /// Has `step` called when what is posted now has been handled, inside whatever loop runs by then.
    void goOn() const { PostMessageW(prompter_.window(), WM_USER, 0, 0); }

    Listener searchWindow_{[this](UINT message, WPARAM) {
        // The rest is the system's.
        if (message >= WM_USER || message == WM_KEYDOWN) called("message " + std::to_string(message));
        return false;
    }};
    std::unique_ptr<Sink> sink_;
    std::map<std::string, std::function<void()>> armed_;
    std::set<std::string> heard_;
    ScratchFolder baseFolder_;
    // The script of `play`.
    Listener prompter_{[this](UINT message, WPARAM) {
        if (message == WM_USER) step();
        return false;
    }};
    const Situation* situation_ = nullptr;
    const std::function<void()>* act_ = nullptr;
    std::size_t pressed_ = 0;
    ULONGLONG began_ = 0;
    ULONGLONG actedAt_ = 0;
    HWND dismissed_ = nullptr;
    ULONGLONG dismissedAt_ = 0;
};

}  // namespace tests
