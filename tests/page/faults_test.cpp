// One run per outside call in which just that call fails: the page goes on, and the later steps run.
#include "tests/page/page_test_base.h"
#include "tests/stage/patience.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

/// A stage, a page on it, and the deed whose calls fail one by one.
struct Scene {
    std::unique_ptr<Stage> stage = Stage::create();
    FakePageSite site{stage->calls()};
    std::unique_ptr<vexa::ctlPPE> page;

    void create() {
        page = std::make_unique<vexa::ctlPPE>(stage->application(), stage->createPage(IDD_ctlPPE, {400, 420}),
                                              site);
    }
    void start() {
        create();
        page->UserControl_Initialize();
        stage->calls().clear();
    }
    bool logged(const std::string& text) {
        const auto log = stage->readFile(stage->application().log.LogPath + L"VexaPPE.log");
        return log && log->find(text) != std::string::npos;
    }
};

/// Plays `prepare` and `deed` on fresh scenes: first without a fault, then once for each call of the deed
/// with that call failing; `check` sees each scene with the failed call's line.
void failEachCall(const std::function<void(Scene&)>& prepare, const std::function<void(Scene&)>& deed,
                  const std::function<void(Scene&, const std::string& failed)>& check) {
    std::size_t count = 0;
    for (std::size_t index = 0; index <= count; ++index) {
        Scene scene;
        prepare(scene);
        scene.stage->calls().clear();
        if (index == 0) {
            deed(scene);
            count = scene.stage->calls().lines().size();
            ASSERT_GT(count, 0U);
            continue;
        }
        scene.stage->calls().failCall(index - 1);
        deed(scene);
        const std::size_t made = scene.stage->calls().lines().size();
        // In real windows a page that has become slow leaves questions out: the last ones never come.
        if (made < index && intervalsToWait() > 1) break;
        ASSERT_GE(made, index);
        const std::string failed = scene.stage->calls().lines()[index - 1];
        scene.stage->calls().forgetFaults();
        SCOPED_TRACE("failed: " + failed);
        check(scene, failed);
    }
}

void giveValues(Stage& stage) {
    stage.setValue(PROFILE, L"MaxEntries", 33);
    stage.setValue(PROFILE, L"MinRel", 44);
    stage.setValue(PROFILE, L"DefaultProject", L"Mail");
}

TEST(PageFaults, EachCallOfTheStartMayFailAndThePageStillStarts) {
    failEachCall(
        [](Scene& scene) {
            giveValues(*scene.stage);
            scene.create();
        },
        [](Scene& scene) { scene.page->UserControl_Initialize(); },
        [](Scene& scene, const std::string& failed) {
            EXPECT_FALSE(scene.page->PropertyPage_Dirty());
            for (ui::Button* button : {&scene.page->cmdKnowledgeBase, &scene.page->cmdSettings,
                                       &scene.page->cmdAttachments, &scene.page->cmdDispMatches})
                EXPECT_TRUE(button->enabled());
            const auto& settings = scene.stage->application().settings;
            // One failing read costs its own setting alone; an open names only the key.
            const bool anyRead = failed.starts_with("registry open");
            const auto lost = [&](const char* name) { return failed.find(name) != std::string::npos; };
            const bool maxEntriesLost = lost("MaxEntries") || (anyRead && settings.MaxEntries == 20);
            const bool minRelLost = lost("MinRel") || (anyRead && settings.MinRel == 40);
            EXPECT_FALSE(anyRead && maxEntriesLost && minRelLost);
            EXPECT_EQ(settings.MaxEntries, maxEntriesLost && !lost("registry close") ? 20 : 33);
            EXPECT_EQ(settings.MinRel, minRelLost && !lost("registry close") ? 40 : 44);
            const bool handleFault =
                failed.find("hWndProperties") != std::string::npos || failed.starts_with("registry create");
            EXPECT_EQ(scene.stage->value(PROFILE, L"hWndProperties").has_value(), !handleFault);
        });
}

TEST(PageFaults, EachCallOfApplyMayFailAndTheOthersAreMade) {
    const auto prepare = [](Scene& scene) {
        scene.stage->setValue(ROOT, L"LoggingInformation", 0);
        scene.start();
        vexa::Application& application = scene.stage->application();
        application.settings.MaxEntries = 34;
        application.settings.LoggingInformation = true;
        application.flags = {true, true, true};
        scene.page->MarkChanged();
    };
    std::size_t writes = 0;
    failEachCall(
        prepare, [](Scene& scene) { scene.page->PropertyPage_Apply(); },
        [&](Scene& scene, const std::string& failed) {
            ++writes;
            EXPECT_FALSE(scene.page->PropertyPage_Dirty());
            EXPECT_EQ(scene.stage->application().flags, vexa::ChangeFlags());
            std::size_t missing = 0;
            for (const vexa::Setting* setting : vexa::applyOrder()) {
                const auto* key = setting->key == vexa::SettingKey::root ? ROOT : PROFILE;
                const vexa::Value wanted = vexa::settingValue(scene.stage->application().settings, *setting);
                missing += scene.stage->value(key, setting->name) == wanted ? 0U : 1U;
            }
            const bool writeFault =
                failed.starts_with("registry create") || failed.starts_with("registry set");
            EXPECT_EQ(missing, writeFault ? 1U : 0U);
            EXPECT_EQ(scene.stage->calls().linesWith("addin").size(), 3U);
            if (failed.starts_with("addin")) {
                EXPECT_TRUE(scene.logged("ctlPPE, Error PropertyPage_Apply: The add-in failed\r\n"));
            }
        });
    EXPECT_GE(writes, 3 * namesAsWritten().size());
}

TEST(PageFaults, EachCallOfAPollTickMayFailAndTheNextTickRuns) {
    failEachCall([](Scene& scene) { scene.start(); }, [](Scene& scene) { scene.stage->user().wait(260); },
                 [](Scene& scene, const std::string&) {
                     scene.stage->addIn().searching = true;
                     scene.stage->user().wait(260);
                     EXPECT_FALSE(scene.page->cmdSettings.enabled());
                     scene.stage->addIn().searching = false;
                     scene.stage->user().wait(260);
                     EXPECT_TRUE(scene.page->cmdSettings.enabled());
                 });
}

class EventFaults : public testing::TestWithParam<int> {};

TEST_P(EventFaults, EachCallOfAnEventMayFailAndThePointerComesBack) {
    failEachCall(
        [](Scene& scene) {
            scene.stage->setValue(ROOT, L"hWndSearchCtl", 4711);
            scene.start();
        },
        [](Scene& scene) {
            bool bProcessing = false;
            std::wstring strName = L"Mail";
            std::int32_t nAction = GetParam();
            scene.page->m_KBForm_KBClick(bProcessing, strName, nAction);
        },
        [](Scene& scene, const std::string& failed) {
            EXPECT_EQ(scene.stage->calls().linesWith("pointer").back(), "pointer 0");
            if (failed.starts_with("addin")) {
                EXPECT_TRUE(scene.logged("ctlPPE, Error m_KBForm_KBClick: The add-in failed\r\n"));
            }
            const bool firstWriteFailed = !scene.stage->value(PROFILE, L"ProjectEvent").has_value();
            const bool secondWriteFailed = !scene.stage->value(PROFILE, L"ProjectEventName").has_value();
            EXPECT_FALSE(firstWriteFailed && secondWriteFailed);
        });
}

INSTANTIATE_TEST_SUITE_P(Codes, EventFaults, testing::Range(0, 8));

TEST(PageFaults, EachCallOfTheEndMayFailAndTheOthersAreMade) {
    failEachCall([](Scene& scene) { scene.start(); },
                 [](Scene& scene) { scene.page->UserControl_Terminate(); },
                 [](Scene& scene, const std::string& failed) {
                     const bool deleteFault =
                         failed.starts_with("registry open") || failed.starts_with("registry delete");
                     EXPECT_EQ(scene.stage->value(PROFILE, L"hWndProperties").has_value(), deleteFault);
                     const bool logFault = failed.starts_with("files");
                     if (!logFault) {
                         EXPECT_TRUE(scene.logged("ctlPPE, terminated.\r\n"));
                     }
                 });
}

}  // namespace
}  // namespace tests
