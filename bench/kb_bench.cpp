// The list of knowledgebases: filling it against the same registry reads, sorting it against the same keys,
// and how both grow.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "bench/bare_calls.h"
#include "bench/ratio.h"
#include "kb/frmKBConfiguration.h"
#include "page/ctlPPE.ids.h"
#include "windows/controls/screen.h"
#include "windows/platform/machine.h"

namespace {

constexpr const char* PROFILE = "Software\\Norvane\\Quillmark\\Bench";
constexpr int LARGE = 10'000;
constexpr int SMALL = 1'000;

/// An idle add-in whose event the benchmark raises.
class QuietAddIn : public vexa::AddIn {
public:
    ProcessFinished finished;

    void SetDefaultKnowledgebase(const std::wstring&) override {}
    void SetLogging(bool) override {}
    void NotifyKbAdded(const std::wstring&) override {}
    void NotifyKbRemoved(const std::wstring&) override {}
    void NotifyKbRenamed(const std::wstring&, const std::wstring&) override {}
    void NotifyKbRebuild(const std::wstring&) override {}
    void NotifyKbUpdate(const std::wstring&) override {}
    bool IsProcessing() override { return false; }
    bool IsAutoUpdateRunning() override { return false; }
    bool IsSearching() override { return false; }
    void SetFindShortcut(std::int32_t) override {}
    void SendMail(const vexa::MailReport&) override {}
    std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override {
        finished = std::move(handler);
        return nullptr;
    }
};

class NobodyRuns : public vexa::AddInLocator {
public:
    std::shared_ptr<vexa::AddIn> running() override { return nullptr; }
};

std::string nameOf(int index) { return "Knowledgebase " + std::to_string(index * 7919 % LARGE); }

std::string keyOf(const std::string& name) { return std::string(PROFILE) + "\\" + name; }

void writeText(const std::string& key, const std::string& name, const std::string& text) {
    bench::bareWrite(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                     static_cast<DWORD>(text.size()) + 1);
}

void setCount(int count) {
    bench::bareWriteNumber(HKEY_CURRENT_USER, PROFILE, "ProjectCount", static_cast<DWORD>(count));
}

void writeRecords() {
    for (int index = 1; index <= LARGE; ++index) {
        const std::string name = nameOf(index);
        const std::string key = keyOf(name);
        writeText(PROFILE, "Project" + std::to_string(index), name);
        writeText(key, "KBLastUpdate", std::to_string(40000 + index % 997) + "." + std::to_string(index));
        bench::bareWriteNumber(HKEY_CURRENT_USER, key.c_str(), "KBSize",
                               static_cast<DWORD>(index * 3571 % 9'000'000));
        bench::bareWriteNumber(HKEY_CURRENT_USER, key.c_str(), "KBDocuments",
                               static_cast<DWORD>(index % 4001));
        writeText(key + "\\Foldersize", "Inbox", "1");
    }
    setCount(LARGE);
}

/// What a refill of the list asks of the registry.
void bareFill(int count) {
    bench::bareRead(HKEY_CURRENT_USER, PROFILE, "ProjectEventName");
    bench::bareRead(HKEY_CURRENT_USER, PROFILE, "ProjectCount");
    bench::bareRead(HKEY_CURRENT_USER, PROFILE, "ProjectCount");
    for (int index = 1; index <= count; ++index) {
        bench::bareRead(HKEY_CURRENT_USER, PROFILE, ("Project" + std::to_string(index)).c_str());
        const std::string key = keyOf(nameOf(index));
        for (const char* value : {"KBLastUpdate", "KBSize", "KBDocuments"})
            bench::bareRead(HKEY_CURRENT_USER, key.c_str(), value);
        bench::bareRead(HKEY_CURRENT_USER, (key + "\\Foldersize").c_str(), "");
    }
}

class Bench {
public:
    Bench() {
        application_.ProfileKey = L"Software\\Norvane\\Quillmark\\Bench";
        application_.addIn = addIn_;
        host_ =
            CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 400, 420, nullptr, nullptr, nullptr, nullptr);
        owner_ = screen_.createPage(IDD_ctlPPE, host_);
    }

    bool run() {
        screen_.onModal = [this](ui::Form& form) {
            measureAll(dynamic_cast<vexa::frmKBConfiguration&>(form));
            form.window().close();
        };
        vexa::frmKBConfiguration(application_, *owner_).Show();
        return met_;
    }

private:
    void measureAll(vexa::frmKBConfiguration& form) {
        measureFill();
        for (int column = 0; column < 4; ++column) measureSort(form, column);
        measureGrowth();
    }

    void refill() { addIn_->finished(L"Knowledgebase 1", false); }

    void measureFill() {
        met_ &= bench::measure({"fill, sort and select 10,000 knowledgebases", 1.15, [this] { refill(); },
                                [] { bareFill(LARGE); }, 7});
    }

    void measureSort(vexa::frmKBConfiguration& form, int column) {
        ui::Grid& list = form.sftKBConfiguration;
        const auto click = [&] { list.onHeaderClick(column); };
        const std::string name = "sort 10,000 rows by column " + std::to_string(column);
        if (column == 1 || column == 2)
            return measureSort(name, click,
                               keys<double>(list, [&](int row) { return list.cellNumber(row, column); }));
        measureSort(name, click, keys<std::wstring>(list, [&](int row) {
                        return machine_.platform().conversions.lower(list.cellText(row, column));
                    }));
    }

    template <class Key, class KeyOf>
    static std::vector<Key> keys(const ui::Grid& list, KeyOf keyOf) {
        std::vector<Key> all;
        for (int row = 0; row < list.rowCount(); ++row) all.push_back(keyOf(row));
        return all;
    }

    /// Both sides sort up and down in turn, each from the order of the time before.
    template <class Key>
    void measureSort(const std::string& name, const std::function<void()>& click,
                     const std::vector<Key>& keys) {
        std::vector<std::size_t> order(keys.size());
        std::iota(order.begin(), order.end(), 0);
        bool up = false;
        const auto bare = [&] {
            std::stable_sort(order.begin(), order.end(), [&](std::size_t first, std::size_t second) {
                return up ? keys[first] < keys[second] : keys[second] < keys[first];
            });
            up = !up;
        };
        met_ &= bench::measure({name, 2, click, bare, 15, 2});
    }

    void measureGrowth() {
        met_ &= bench::measureGrowth("refill", 11, SMALL, LARGE, [this](int count) {
            setCount(count);
            return [this] { refill(); };
        });
        met_ &= bench::measureGrowth("unlock with the list kept", 11, SMALL, LARGE, [this](int count) {
            setCount(count);
            refill();
            return [this] { addIn_->finished(L"Knowledgebase 1", true); };
        });
        setCount(LARGE);
        refill();
    }

    NobodyRuns locator_;
    win::Machine machine_{locator_};
    win::Screen screen_{GetModuleHandleW(nullptr)};
    vexa::Application application_{machine_.platform(), screen_};
    std::shared_ptr<QuietAddIn> addIn_ = std::make_shared<QuietAddIn>();
    HWND host_ = nullptr;
    std::unique_ptr<ui::Window> owner_;
    bool met_ = true;
};

}  // namespace

int main() {
    const bench::OwnHive hive;
    writeRecords();
    return Bench().run() ? 0 : 1;
}
