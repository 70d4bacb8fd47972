// The stage of Windows builds: real windows, a registry hive and a folder of the test's own, the system's
// conversions; only the clock, the add-in and the answers to questions are the test's.
#include "tests/stage/stage.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <deque>

#include "common/CTimer.h"
#include "page/ctlPPE.ids.h"
#include "tests/stage/patience.h"
#include "tests/support/recording_ports.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/text.h"
#include "tests/windows/stage/announcements.h"
#include "tests/windows/stage/container.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/scratch_folder.h"
#include "tests/windows/stage/scratch_registry.h"
#include "tests/windows/stage/user.h"
#include "windows/controls/screen.h"
#include "windows/platform/conversions.h"
#include "windows/platform/registry.h"

namespace tests {
namespace {

/// Finds the stage's add-in while it runs.
class StageLocator : public vexa::AddInLocator {
public:
    explicit StageLocator(std::shared_ptr<FakeAddIn> addIn) : addIn_(std::move(addIn)) {}
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() override { return isRunning ? addIn_ : nullptr; }
    bool isRunning = true;

private:
    std::shared_ptr<FakeAddIn> addIn_;
};

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

class WindowsStage : public Stage {
public:
    WindowsStage() {
        calls_.spend = [](int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); };
        screen_.onModal = [this](ui::Form& form) { play(form); };
        vexa::modTimer::clear();
    }
    ~WindowsStage() override {
        if (!scripts_.empty()) ADD_FAILURE() << scripts_.size() << " dialogs were never shown";
        if (ports_.registry().openKeys() > 0) ADD_FAILURE() << "a registry key was left open";
        vexa::modTimer::clear();
        owner_.reset();
        // Messages to windows that are gone by now must not meet the next test.
        deliverMessages();
    }
    WindowsStage(const WindowsStage&) = delete;
    WindowsStage& operator=(const WindowsStage&) = delete;

    [[nodiscard]] vexa::Application& application() override { return application_; }
    [[nodiscard]] User& user() override { return *user_; }
    [[nodiscard]] CallLog& calls() override { return calls_; }
    [[nodiscard]] FakeAddIn& addIn() override { return *addIn_; }
    void setAddInRunning(bool running) override { locator_.isRunning = running; }

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
    void setTwipsPerPixel(double horizontal, double vertical) override {
        scripted_.setTwipsPerPixel(horizontal, vertical);
    }
    void setRoom(ui::ListBox& list, int items) override {
        SetWindowSubclass(windowOf(list), refuseItems, 1, static_cast<DWORD_PTR>(items));
    }
    [[nodiscard]] ui::Window& owner() override;

    void whenShown(Script script) override { scripts_.push_back(std::move(script)); }
    void closeDialogs() override { screen_.closeAll(); }
    void answerMessages(std::vector<ui::MessageAnswer> answers) override {
        scripted_.answerMessages(answers);
    }
    [[nodiscard]] const std::vector<ui::Message>& messages() const override { return scripted_.messages(); }
    void answerColours(std::vector<std::optional<ui::Colour>> answers) override {
        scripted_.answerColours(answers);
    }
    [[nodiscard]] const std::vector<ColourQuestion>& colourQuestions() const override {
        return scripted_.colourQuestions();
    }
    [[nodiscard]] std::vector<std::wstring> announced() override {
        deliverMessages();
        return announcements_.heard();
    }
    [[nodiscard]] bool isShown(const ui::Window& window) override {
        return IsWindowVisible(reinterpret_cast<HWND>(window.handle())) != FALSE;
    }

private:
    void play(ui::Form& form);
    void playNext(ui::Form& form, const std::string& caption);

    CallLog calls_;
    ScratchRegistry hive_;
    ScratchFolder folder_;
    win::Registry registry_;
    win::AnsiCodec ansi_;
    win::Conversions conversions_;
    InstalledElsewhere files_{folder_.path()};
    StageClock clock_;
    StageDesktop desktop_{calls_};
    win::SystemTimers timers_;
    std::shared_ptr<FakeAddIn> addIn_ = std::make_shared<FakeAddIn>(calls_);
    StageLocator locator_{addIn_};
    RecordingPorts ports_{calls_,
                          {registry_, ansi_, conversions_, files_, clock_, locator_, desktop_, timers_}};
    win::Screen screen_{GetModuleHandleW(nullptr)};
    ScriptedScreen scripted_{calls_, screen_, [this] { return screen_.isClosing(); }};
    std::unique_ptr<User> user_ = windowsUser();
    vexa::Application application_{ports_.platform(), scripted_};
    std::deque<Script> scripts_;
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
    if (owner_ == nullptr) owner_ = createPage(IDD_ctlPPE, {400, 420});
    return *owner_;
}

void WindowsStage::play(ui::Form& form) {
    const std::string caption = toUtf8(form.window().caption());
    playNext(form, caption);
    if (!form.window().isOpen()) return;
    ADD_FAILURE() << "\"" << caption << "\" was left open by its script";
    form.window().close();
}

void WindowsStage::playNext(ui::Form& form, const std::string& caption) {
    if (scripts_.empty()) {
        ADD_FAILURE() << "\"" << caption << "\" was shown without a script";
        return;
    }
    const Script script = std::move(scripts_.front());
    scripts_.pop_front();
    try {
        script(form);
    } catch (const std::exception& error) {
        ADD_FAILURE() << "the script of \"" << caption << "\" ended by an exception: " << error.what();
    }
}

}  // namespace

std::unique_ptr<Stage> Stage::create() { return std::make_unique<WindowsStage>(); }

int intervalsToWait() { return 20; }

}  // namespace tests
