// A page on the stage, with a container that notes what the page tells it.
#pragma once

#include "page/ctlPPE.h"
#include "page/ctlPPE.ids.h"
#include "tests/stage/form_test.h"
#include "tests/support/recording_ports.h"
#include "tests/support/text.h"

namespace tests {

inline constexpr const wchar_t* ROOT = L"Software\\Norvane\\Quillmark";
/// The profile key with no profile set.
inline constexpr const wchar_t* PROFILE = L"Software\\Norvane\\Quillmark\\";
/// Those of two profiles.
inline constexpr const wchar_t* HOME = L"Software\\Norvane\\Quillmark\\Home";
inline constexpr const wchar_t* WORK = L"Software\\Norvane\\Quillmark\\Work";

/// The container's side of the page.
class FakePageSite : public vexa::PageSite {
public:
    explicit FakePageSite(CallLog& calls) : calls_(calls) {}

    std::wstring displayNameAnswer;
    /// Runs inside OnStatusChange, as a host that asks Dirty at once.
    std::function<void()> whenStatusChanges;

    void onStatusChange() override {
        if (calls_.enter("site OnStatusChange")) throw vexa::Error(L"The host failed");
        if (whenStatusChanges) whenStatusChanges();
    }
    std::wstring displayName() override {
        if (calls_.enter("site DisplayName")) throw vexa::Error(L"The host failed");
        return displayNameAnswer;
    }

private:
    CallLog& calls_;
};

/// What belongs together on the page.
struct PageRow {
    const ui::Line& line;
    const ui::Label& caption;
    const ui::Label& description;
    const ui::Picture& picture;
    const ui::Button& button;
};

class PageTest : public FormTest {
public:
    /// Creates the page and starts it.
    vexa::ctlPPE& start() {
        create();
        page->UserControl_Initialize();
        return *page;
    }

    void create() { page = newPage(site); }
    [[nodiscard]] std::unique_ptr<vexa::ctlPPE> newPage(vexa::PageSite& itsSite) {
        return std::make_unique<vexa::ctlPPE>(application, stage->createPage(IDD_ctlPPE, {400, 420}),
                                              itsSite);
    }
    /// One more page, started.
    [[nodiscard]] std::unique_ptr<vexa::ctlPPE> startAnother() {
        auto other = newPage(otherSite);
        other->UserControl_Initialize();
        return other;
    }

    void end() {
        page->UserControl_Terminate();
        page.reset();
    }

    /// The texts of the log's lines, without their time stamps.
    [[nodiscard]] std::vector<std::string> log() {
        std::vector<std::string> texts;
        const std::string content = stage->readFile(application.log.LogPath + L"VexaPPE.log").value_or("");
        for (const std::string& line : splitLines(content)) texts.push_back(line.substr(line.find('\t') + 1));
        return texts;
    }

    [[nodiscard]] std::int32_t integer(const std::wstring& key, const std::wstring& name) {
        const auto stored = stage->value(key, name);
        return stored ? std::get<std::int32_t>(*stored) : MISSING;
    }
    [[nodiscard]] std::wstring text(const std::wstring& key, const std::wstring& name) {
        const auto stored = stage->value(key, name);
        return stored ? std::get<std::wstring>(*stored) : L"(missing)";
    }
    static constexpr std::int32_t MISSING = -99999;

    [[nodiscard]] std::vector<PageRow> rows() {
        std::vector<PageRow> all;
        ui::Window& window = page->window();
        for (const int first :
             {IDC_lneKnowledgeBase, IDC_lneSettings, IDC_lneAttachments, IDC_lneDispMatches, IDC_lneWizard})
            all.push_back({window.control<ui::Line>(first), window.control<ui::Label>(first + 1),
                           window.control<ui::Label>(first + 2), window.control<ui::Picture>(first + 3),
                           window.control<ui::Button>(first + 4)});
        return all;
    }
    /// Both were called, the first call that begins with the one before that of the other.
    void expectOrder(const std::string& before, const std::string& after) {
        const auto first = [&](const std::string& beginning) {
            return std::ranges::find_if(calls.lines(),
                                        [&](const std::string& line) { return line.starts_with(beginning); });
        };
        ASSERT_NE(first(before), calls.lines().end());
        ASSERT_NE(first(after), calls.lines().end());
        EXPECT_LT(first(before), first(after));
    }
    /// As it is published.
    static std::int32_t messageHandle(const vexa::ctlPPE& of) {
        return static_cast<std::int32_t>(of.cmdMsg.handle());
    }

    FakePageSite site{calls};
    FakePageSite otherSite{calls};
    std::unique_ptr<vexa::ctlPPE> page;
};

}  // namespace tests
