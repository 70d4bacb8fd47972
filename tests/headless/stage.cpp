// The stage of native builds: the machine in memory, headless windows, an add-in that does what it is told.
#include <cstring>

#include "tests/headless/list_box.h"
#include "tests/headless/machine.h"
#include "tests/headless/user.h"
#include "tests/headless/window.h"
#include "tests/stage/patience.h"
#include "tests/support/common_stage.h"

namespace headless {
namespace {

/// Where dialogs belong that no page shows.
const DialogTemplate& ownerTemplate() {
    static const DialogTemplate bare{"owner", 0, "", L"Owner", {200, 200}, {"WS_CAPTION"}, {}};
    return bare;
}

class HeadlessStage : public tests::CommonStage {
public:
    HeadlessStage() {
        begin(recorded_);
        calls_.spend = [this](int milliseconds) { machine_.loop.spend(milliseconds); };
        screen_.whenShown = [this](ui::Form& form) { play(form); };
        owner_.show(owner_.innerSize());
    }
    ~HeadlessStage() override { end(); }
    HeadlessStage(const HeadlessStage&) = delete;
    HeadlessStage& operator=(const HeadlessStage&) = delete;

    [[nodiscard]] tests::User& user() override { return user_; }

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
    void setRoom(ui::ListBox& list, int items) override { dynamic_cast<ListBox&>(list).setRoom(items); }
    [[nodiscard]] ui::Window& owner() override { return owner_; }

    void closeDialogs() override { screen_.closeAll(); }
    [[nodiscard]] std::vector<std::wstring> announced() override { return screen_.announced; }
    [[nodiscard]] bool isShown(const ui::Window& window) override {
        return dynamic_cast<const Window&>(window).isShown();
    }

private:
    Machine machine_;
    Screen screen_{machine_.loop};
    tests::RecordedProgram recorded_{calls_,
                                     {machine_.registry, machine_.ansi, machine_.conversions, machine_.files,
                                      machine_.clock, locator_, machine_.desktop, machine_.timers},
                                     screen_,
                                     [this] { return screen_.isClosing(); }};
    Window owner_{screen_, ownerTemplate(), nullptr};
    User user_{machine_.loop};
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

}  // namespace
}  // namespace headless

std::unique_ptr<tests::Stage> tests::Stage::create() { return std::make_unique<headless::HeadlessStage>(); }

int tests::intervalsToWait() { return 1; }
