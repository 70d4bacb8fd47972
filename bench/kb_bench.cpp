// The list of knowledgebases: filling it against the same registry reads, sorting it against drawing it, and
// how both grow.
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

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

void setCount(int count) { bench::bareWriteNumber(PROFILE, "ProjectCount", static_cast<DWORD>(count)); }

void writeRecords() {
    for (int index = 1; index <= LARGE; ++index) {
        const std::string name = nameOf(index);
        const std::string key = keyOf(name);
        bench::bareWriteText(PROFILE, ("Project" + std::to_string(index)).c_str(), name);
        bench::bareWriteText(key.c_str(), "KBLastUpdate",
                             std::to_string(40000 + index % 997) + "." + std::to_string(index));
        bench::bareWriteNumber(key.c_str(), "KBSize", static_cast<DWORD>(index * 3571 % 9'000'000));
        bench::bareWriteNumber(key.c_str(), "KBDocuments", static_cast<DWORD>(index % 4001));
        bench::bareWriteText((key + "\\Foldersize").c_str(), "Inbox", "1");
    }
    setCount(LARGE);
}

/// What a refill of the list asks of the registry.
void bareFill(int count) {
    bench::bareRead(PROFILE, "ProjectEventName");
    bench::bareRead(PROFILE, "ProjectCount");
    bench::bareRead(PROFILE, "ProjectCount");
    for (int index = 1; index <= count; ++index) {
        bench::bareRead(PROFILE, ("Project" + std::to_string(index)).c_str());
        const std::string key = keyOf(nameOf(index));
        for (const char* value : {"KBLastUpdate", "KBSize", "KBDocuments"})
            bench::bareRead(key.c_str(), value);
        bench::bareRead((key + "\\Foldersize").c_str(), "");
    }
}

/// Hears when the hourglass comes: the first sign of life of a list that takes long to fill.
class PointerWatch : public win::Desktop {
public:
    void start() {
        begin_ = GetTickCount64();
        hourglass_ = 0;
    }
    void setPointer(vexa::PointerShape shape) override {
        win::Desktop::setPointer(shape);
        if (shape == vexa::PointerShape::hourglass && hourglass_ == 0) hourglass_ = GetTickCount64();
    }
    /// Prints how long it took since the start, with whatever came before the fill.
    [[nodiscard]] bool cameSoon(const char* of) const {
        constexpr ULONGLONG GOAL = 200;  // milliseconds
        const bool met = hourglass_ != 0 && hourglass_ - begin_ <= GOAL;
        std::printf("first sign of life of %s: %lld ms (goal %llu) %s\n", of,
                    hourglass_ == 0 ? -1LL : static_cast<long long>(hourglass_ - begin_), GOAL,
                    met ? "met" : "MISSED");
        return met;
    }

private:
    ULONGLONG begin_ = 0;
    ULONGLONG hourglass_ = 0;
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
        watch_.start();
        vexa::frmKBConfiguration(application_, *owner_).Show();
        return met_;
    }

private:
    void measureAll(vexa::frmKBConfiguration& form) {
        met_ &= watch_.cameSoon("an opening with 10,000 knowledgebases");
        watch_.start();
        refill();
        met_ &= watch_.cameSoon("a refill with 10,000 knowledgebases");
        measureFill();
        measureSorts(form.sftKBConfiguration);
        measureGrowth(form.sftKBConfiguration);
    }

    void refill() { addIn_->finished(L"Knowledgebase 1", false); }

    void measureFill() {
        met_ &= bench::measure({"fill, sort and select 10,000 knowledgebases", 1.15, [this] { refill(); },
                                [] { bareFill(LARGE); }, 7});
    }

    /// A click on a header feels immediate: where it turns the order round, about as long as drawing the
    /// list, and where the rows come from another column's order, a few times as long.
    void measureSorts(ui::Grid& list) {
        const ui::Grid::BulkUpdate unshown(list);
        const int columns = static_cast<int>(list.columns().size());
        for (int column = 0; column < columns; ++column) {
            const std::string name = "sort 10,000 rows by column " + std::to_string(column);
            const auto sort = [&list, column] { list.onHeaderClick(column); };
            const auto sortByTheNext = [&, column] { list.onHeaderClick((column + 1) % columns); };
            met_ &= bench::measure({name + " once more, against a redraw", 1.3, sort, redraw(list)});
            met_ &=
                bench::measure({name + " from another order", 4, sort, redraw(list), 31, 1, sortByTheNext});
        }
    }

    static std::function<void()> redraw(ui::Grid& list) {
        return [&list] {
            list.refresh();
            UpdateWindow(reinterpret_cast<HWND>(list.handle()));
        };
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

    bench::Locator locator_;
    win::Machine machine_{locator_};
    win::Screen screen_{GetModuleHandleW(nullptr)};
    PointerWatch watch_;
    /// The machine's ports, but for the pointer.
    [[nodiscard]] vexa::Platform platform() {
        const vexa::Platform all = machine_.platform();
        return {all.registry, all.ansi,   all.conversions, all.files,
                all.clock,    all.addIns, watch_,          all.timers};
    }
    vexa::Application application_{platform(), screen_};
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
