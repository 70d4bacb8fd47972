// The stage of Windows builds: real windows, a registry hive and a folder of the test's own, the system's
// conversions; only the clock, the add-in and the answers to questions are the test's.
#include <windows.h>

#include <commctrl.h>

#include "tests/stage/patience.h"
#include "tests/support/common_stage.h"
#include "tests/windows/stage/announcements.h"
#include "tests/windows/stage/container.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/owner.ids.h"
#include "tests/windows/stage/scratch_folder.h"
#include "tests/windows/stage/scratch_registry.h"
#include "tests/windows/stage/user.h"
#include "windows/controls/screen.h"
#include "windows/platform/conversions.h"
#include "windows/platform/registry.h"

namespace tests {
namespace {

class StageClock : public vexa::Clock {
public:
    [[nodiscard]] vexa::LocalTime localTime() override { return time; }
    [[nodiscard]] std::int64_t milliseconds() override { return real_.milliseconds(); }
    void sleep(int) override {}
    vexa::LocalTime time{2026, 2, 3, 9, 5, 7, 4};

private:
    win::Clock real_;
};

/// Stands before a list that has room for `items` alone.
LRESULT CALLBACK refuseItems(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR identifier,
                             DWORD_PTR items) noexcept {
    if (message == LB_ADDSTRING && SendMessageW(list, LB_GETCOUNT, 0, 0) >= static_cast<LRESULT>(items))
        return LB_ERRSPACE;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(list, refuseItems, identifier);
    return DefSubclassProc(list, message, wParam, lParam);
}

class WindowsStage : public CommonStage {
public:
    WindowsStage() {
        calls_.spend = [](int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); };
        screen_.onModal = [this](ui::Form& form) {
            deliverMessages();  // it is painted, as are all windows again where events run or the user waits
            play(form);
        };
        begin(recorded_);
    }
    ~WindowsStage() override {
        end();
        owner_.reset();
        // Messages to windows that are gone by now must not meet the next test.
        deliverMessages();
    }
    WindowsStage(const WindowsStage&) = delete;
    WindowsStage& operator=(const WindowsStage&) = delete;

    [[nodiscard]] User& user() override { return *user_; }

    void setValue(const std::wstring& key, const std::wstring& name, const vexa::Value& value) override {
        hive_.put(key, name, value);
    }
    void setRawValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                     const vexa::Bytes& data) override {
        hive_.put(key, name, type, data);
    }
    [[nodiscard]] std::optional<vexa::Value> value(const std::wstring& key,
                                                   const std::wstring& name) override {
        return hive_.get(key, name);
    }

    [[nodiscard]] std::wstring folder() override { return folder_.path() + L"\\"; }
    void writeFile(const std::wstring& path, const std::string& content) override {
        ScratchFolder::write(path, content);
    }
    [[nodiscard]] std::optional<std::string> readFile(const std::wstring& path) override {
        return ScratchFolder::read(path);
    }
    void createFolder(const std::wstring& path) override { ScratchFolder::createFolders(path); }
    void addDrive(const std::wstring& name, bool ready) override { files_.addDrive(name, ready); }
    void setTime(const vexa::LocalTime& time) override { clock_.time = time; }
    void useDecimalComma() override {
        constexpr std::uint32_t GERMAN = 0x0407;
        conversions_ = win::Conversions(GERMAN);
    }

    [[nodiscard]] std::unique_ptr<ui::Window> createPage(int templateIdentifier,
                                                         const ui::Size& size) override;
    void setRoom(ui::ListBox& list, int items) override {
        SetWindowSubclass(windowOf(list), refuseItems, 1, static_cast<DWORD_PTR>(items));
    }
    [[nodiscard]] ui::Window& owner() override;

    void closeDialogs() override { screen_.closeAll(); }
    [[nodiscard]] std::vector<std::wstring> announced() override {
        deliverMessages();
        return announcements_.heard();
    }
    [[nodiscard]] bool isShown(const ui::Window& window) override {
        return IsWindowVisible(reinterpret_cast<HWND>(window.handle())) != FALSE;
    }

private:
    ScratchRegistry hive_;
    ScratchFolder folder_;
    win::Registry registry_;
    win::AnsiCodec ansi_;
    win::Conversions conversions_;
    InstalledElsewhere files_{folder_.path()};
    StageClock clock_;
    StageDesktop desktop_{calls_};
    win::SystemTimers timers_;
    win::Screen screen_{GetModuleHandleW(nullptr)};
    RecordedProgram recorded_{calls_,
                              {registry_, ansi_, conversions_, files_, clock_, locator_, desktop_, timers_},
                              screen_,
                              [this] { return screen_.isClosing(); }};
    std::unique_ptr<User> user_ = windowsUser();
    Announcements announcements_;
    std::vector<std::unique_ptr<Container>> containers_;
    std::unique_ptr<ui::Window> owner_;
};

std::unique_ptr<ui::Window> WindowsStage::createPage(int templateIdentifier, const ui::Size& size) {
    Container& container = *containers_.emplace_back(std::make_unique<Container>(size));
    auto page = screen_.createPage(templateIdentifier, container.window());
    container.show(win::handleOf(page.get()));
    deliverMessages();
    return page;
}

ui::Window& WindowsStage::owner() {
    if (owner_ == nullptr) owner_ = createPage(IDD_testOwner, {400, 420});
    return *owner_;
}

}  // namespace

std::unique_ptr<Stage> Stage::create() { return std::make_unique<WindowsStage>(); }

int intervalsToWait() { return 20; }

}  // namespace tests
