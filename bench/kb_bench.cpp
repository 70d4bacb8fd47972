// The list of knowledgebases: filling it against the same registry reads, sorting it against the same keys,
// and how both grow.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "bench/add_ins.h"
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

/// The keys of the list's rows and nothing else, sorted as a click on the header of their column sorts the
/// list: down at first, then up and down in turn.
class BareRows {
public:
    BareRows(const ui::Grid& list, vexa::Conversions& conversions) : order_(std::size_t(list.rowCount())) {
        std::iota(order_.begin(), order_.end(), 0);
        for (int row = 0; row < list.rowCount(); ++row) {
            names_.push_back(conversions.lower(list.cellText(row, vexa::column::name)));
            dates_.push_back(list.cellNumber(row, vexa::column::lastUpdate));
            sizes_.push_back(list.cellNumber(row, vexa::column::size));
            documents_.push_back(list.cellText(row, vexa::column::documents));
        }
    }

    void sort(int column) {
        const bool up = std::exchange(up_[column], !up_[column]);
        switch (column) {
            case vexa::column::name: return sort(names_, up);
            case vexa::column::lastUpdate: return sort(dates_, up);
            case vexa::column::size: return sort(sizes_, up);
            default: return sort(documents_, up);
        }
    }

    [[nodiscard]] bool areAsIn(const ui::Grid& list) const {
        for (int row = 0; row < list.rowCount(); ++row)
            if (list.cell(row, vexa::column::name).key != names_[order_[std::size_t(row)]]) return false;
        return true;
    }

private:
    template <class Key>
    void sort(const std::vector<Key>& keys, bool up) {
        std::stable_sort(order_.begin(), order_.end(), [&](std::size_t first, std::size_t second) {
            return up ? keys[first] < keys[second] : keys[second] < keys[first];
        });
    }

    std::vector<std::size_t> order_;
    std::vector<std::wstring> names_;
    std::vector<double> dates_;
    std::vector<double> sizes_;
    std::vector<std::wstring> documents_;
    bool up_[vexa::column::count]{};
};

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
        measureSorts(form.sftKBConfiguration);
        measureGrowth(form.sftKBConfiguration);
    }

    void refill() { addIn_->finished(L"Knowledgebase 1", false); }

    void measureFill() {
        met_ &= bench::measure({"fill, sort and select 10,000 knowledgebases", 1.15, [this] { refill(); },
                                [] { bareFill(LARGE); }, 7});
    }

    /// A click on a header against a bare sort of the same keys, without what the list view shows of it. Both
    /// sides sort down and up in turn, in one series from the order of the click before, in the other from
    /// the order of another column.
    void measureSorts(ui::Grid& list) {
        BareRows rows(list, machine_.platform().conversions);
        const ui::Grid::BulkUpdate unshown(list);
        for (int column = 0; column < vexa::column::count; ++column) {
            const std::string name = "sort 10,000 rows by column " + std::to_string(column);
            const auto click = [&] { list.onHeaderClick(column); };
            const auto bare = [&] { rows.sort(column); };
            met_ &= bench::measure({name + ", turned round", 2, click, bare});
            const int other = (column + 2) % vexa::column::count;
            met_ &= bench::measure({name + ", from another's order", 2, click, bare, 31, 1,
                                    [&] { list.onHeaderClick(other); }, [&] { rows.sort(other); }});
        }
        if (rows.areAsIn(list)) return;
        std::printf("The bare side has sorted otherwise than the list.\n");
        met_ = false;
    }

    void measureGrowth(ui::Grid& list) {
        measureGrowth("refill", [this] { refill(); });
        measureGrowth("unlock with the list kept", [this] { addIn_->finished(L"Knowledgebase 1", true); });
        measureGrowth("select the last row and the first again", [&list] {
            list.setCurrentRow(list.rowCount() - 1);
            list.setCurrentRow(0);
        });
    }

    void measureGrowth(const std::string& name, const std::function<void()>& deed) {
        met_ &= bench::measureGrowth(name, 11, SMALL, LARGE, [&](int count) {
            setCount(count);
            refill();
            return deed;
        });
    }

    bench::NoAddIn locator_;
    win::Machine machine_{locator_};
    win::Screen screen_{GetModuleHandleW(nullptr)};
    vexa::Application application_{machine_.platform(), screen_};
    std::shared_ptr<bench::IdleAddIn> addIn_ = std::make_shared<bench::IdleAddIn>();
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
