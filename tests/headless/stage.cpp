// The stage of native builds: the machine in memory, headless windows, an add-in that does what it is told.
#include "tests/stage/stage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <deque>

#include "common/CTimer.h"
#include "tests/headless/list_box.h"
#include "tests/headless/machine.h"
#include "tests/headless/user.h"
#include "tests/headless/window.h"
#include "tests/stage/patience.h"
#include "tests/support/recording_ports.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/text.h"

namespace headless {
namespace {

/// Finds the stage's add-in while it runs.
class StageLocator : public vexa::AddInLocator {
public:
    explicit StageLocator(std::shared_ptr<tests::FakeAddIn> addIn) : addIn_(std::move(addIn)) {}
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() override { return isRunning ? addIn_ : nullptr; }
    bool isRunning = true;

private:
    std::shared_ptr<tests::FakeAddIn> addIn_;
};

/// Where dialogs belong that no page shows.
const DialogTemplate& ownerTemplate() {
    static const DialogTemplate bare{"owner", 0, "", L"Owner", {200, 200}, {"WS_CAPTION"}, {}};
    return bare;
}

class HeadlessStage : public tests::Stage {
public:
    HeadlessStage() {
        calls_.spend = [this](int milliseconds) { machine_.loop.spend(milliseconds); };
        screen_.whenShown = [this](ui::Form& form) { play(form); };
        owner_.show(owner_.innerSize());
    }
    ~HeadlessStage() override {
        if (!scripts_.empty()) ADD_FAILURE() << scripts_.size() << " dialogs were never shown";
        if (ports_.registry().openKeys() > 0) ADD_FAILURE() << "a registry key was left open";
        vexa::modTimer::clear();
    }
    HeadlessStage(const HeadlessStage&) = delete;
    HeadlessStage& operator=(const HeadlessStage&) = delete;

    [[nodiscard]] vexa::Application& application() override { return application_; }
    [[nodiscard]] tests::User& user() override { return user_; }
    [[nodiscard]] tests::CallLog& calls() override { return calls_; }
    [[nodiscard]] tests::FakeAddIn& addIn() override { return *addIn_; }
    void setAddInRunning(bool running) override { locator_.isRunning = running; }

    void setValue(const std::wstring& key, const std::wstring& name, const vexa::Value& value) override;
    void setRawValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                     const vexa::Bytes& data) override {
        machine_.registry.put(key, name, {type, data});
    }
    [[nodiscard]] std::optional<vexa::Value> value(const std::wstring& key,
                                                   const std::wstring& name) override;

    [[nodiscard]] std::wstring folder() override { return machine_.files.installationFolder() + L"\\"; }
    void writeFile(const std::wstring& path, const std::string& content) override {
        machine_.files.write(path, content);
    }
    [[nodiscard]] std::optional<std::string> readFile(const std::wstring& path) override {
        return machine_.files.read(path);
    }
    void createFolder(const std::wstring& path) override { machine_.files.createFolders(path); }
    void addDrive(const std::wstring& name, bool ready) override { machine_.files.addDrive(name, ready); }
    void setTime(const vexa::LocalTime& time) override { machine_.clock.time = time; }
    void useDecimalComma() override { machine_.conversions.locale = german(); }

    [[nodiscard]] std::unique_ptr<ui::Window> createPage(int templateIdentifier,
                                                         const ui::Size& size) override;
    void setTwipsPerPixel(double horizontal, double vertical) override {
        scripted_.setTwipsPerPixel(horizontal, vertical);
    }
    void setRoom(ui::ListBox& list, int items) override { dynamic_cast<ListBox&>(list).setRoom(items); }
    [[nodiscard]] ui::Window& owner() override { return owner_; }

    void whenShown(tests::Script script) override { scripts_.push_back(std::move(script)); }
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
    [[nodiscard]] std::vector<std::wstring> announced() override { return screen_.announced; }
    [[nodiscard]] bool isShown(const ui::Window& window) override {
        return dynamic_cast<const Window&>(window).isShown();
    }

private:
    void play(ui::Form& form);

    tests::CallLog calls_;
    Machine machine_;
    std::shared_ptr<tests::FakeAddIn> addIn_ = std::make_shared<tests::FakeAddIn>(calls_);
    StageLocator locator_{addIn_};
    tests::RecordingPorts ports_{calls_,
                                 {machine_.registry, machine_.ansi, machine_.conversions, machine_.files,
                                  machine_.clock, locator_, machine_.desktop, machine_.timers}};
    Screen screen_{machine_.loop};
    tests::ScriptedScreen scripted_{calls_, screen_, [this] { return screen_.isClosing(); }};
    Window owner_{screen_, ownerTemplate(), nullptr};
    User user_{machine_.loop};
    vexa::Application application_{ports_.platform(), scripted_};
    std::deque<tests::Script> scripts_;
};

vexa::Bytes bytesOf(const void* data, std::size_t size) {
    vexa::Bytes bytes(size);
    std::memcpy(bytes.data(), data, size);
    return bytes;
}

void HeadlessStage::setValue(const std::wstring& key, const std::wstring& name, const vexa::Value& value) {
    struct ToStored {
        vexa::AnsiCodec& ansi;
        MemoryRegistry::Stored operator()(const std::wstring& text) const {
            const std::string bytes = ansi.toAnsi(text);
            return {static_cast<std::uint32_t>(vexa::ValueType::text),
                    bytesOf(bytes.c_str(), bytes.size() + 1)};
        }
        MemoryRegistry::Stored operator()(std::int32_t number) const {
            return {static_cast<std::uint32_t>(vexa::ValueType::integer), bytesOf(&number, sizeof number)};
        }
        MemoryRegistry::Stored operator()(const vexa::Bytes& bytes) const {
            return {static_cast<std::uint32_t>(vexa::ValueType::binary), bytes};
        }
    };
    machine_.registry.put(key, name, std::visit(ToStored{machine_.ansi}, value));
}

std::optional<vexa::Value> HeadlessStage::value(const std::wstring& key, const std::wstring& name) {
    const auto stored = machine_.registry.get(key, name);
    if (!stored) return {};
    const std::string bytes(stored->data.begin(), stored->data.end());
    switch (static_cast<vexa::ValueType>(stored->type)) {
        case vexa::ValueType::text: return machine_.ansi.fromAnsi(bytes.substr(0, bytes.find('\0')));
        case vexa::ValueType::integer: {
            std::int32_t number = 0;
            if (bytes.size() != sizeof number) return stored->data;
            std::memcpy(&number, bytes.data(), sizeof number);
            return number;
        }
        default: return stored->data;
    }
}

std::unique_ptr<ui::Window> HeadlessStage::createPage(int templateIdentifier, const ui::Size& size) {
    auto page = std::make_unique<Window>(screen_, dialogTemplate(templateIdentifier), nullptr);
    page->show(size);
    return page;
}

void HeadlessStage::play(ui::Form& form) {
    const std::string caption = tests::toUtf8(form.window().caption());
    if (scripts_.empty()) {
        ADD_FAILURE() << "\"" << caption << "\" was shown without a script";
        return;
    }
    const tests::Script script = std::move(scripts_.front());
    scripts_.pop_front();
    try {
        script(form);
    } catch (const std::exception& error) {
        ADD_FAILURE() << "the script of \"" << caption << "\" ended by an exception: " << error.what();
        return;
    }
    if (form.window().isOpen()) ADD_FAILURE() << "\"" << caption << "\" was left open by its script";
}

}  // namespace
}  // namespace headless

std::unique_ptr<tests::Stage> tests::Stage::create() { return std::make_unique<headless::HeadlessStage>(); }

int tests::intervalsToWait() { return 1; }
