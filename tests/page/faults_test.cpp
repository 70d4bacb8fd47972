// One run per outside call in which just that call fails: the page goes on, and the later steps run.
#include "tests/page/page_test_base.h"
#include "tests/stage/fault_runs.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

/// A stage and a page on it.
struct Scene : PageTest {
    void TestBody() override {}
};

constexpr auto failEachCall = failEachCallOn<Scene>;

void giveValues(Stage& stage) {
    stage.setValue(PROFILE, L"MaxEntries", 33);
    stage.setValue(PROFILE, L"MinRel", 44);
    stage.setValue(PROFILE, L"DefaultProject", L"Mail");
}

TEST(PageFaults, EachCallOfTheStartMayFailAndThePageStillStarts) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            giveValues(*scene.stage);
            scene.create();
            arm();
            scene.page->UserControl_Initialize();
        },
        [](Scene& scene, const std::string& failed) {
            EXPECT_FALSE(scene.page->PropertyPage_Dirty());
            for (ui::Button* button : {&scene.page->cmdKnowledgeBase, &scene.page->cmdSettings,
                                       &scene.page->cmdAttachments, &scene.page->cmdDispMatches})
                EXPECT_TRUE(button->enabled());
            const auto& settings = scene.application.settings;
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
    const auto deed = [](Scene& scene, const Arm& arm) {
        scene.stage->setValue(ROOT, L"LoggingInformation", 0);
        scene.start();
        vexa::Application& application = scene.application;
        application.settings.MaxEntries = 34;
        application.settings.LoggingInformation = true;
        application.flags = {true, true, true};
        scene.page->MarkChanged();
        arm();
        scene.page->PropertyPage_Apply();
    };
    std::size_t writes = 0;
    failEachCall(deed, [&](Scene& scene, const std::string& failed) {
        ++writes;
        EXPECT_FALSE(scene.page->PropertyPage_Dirty());
        EXPECT_EQ(scene.application.flags, vexa::ChangeFlags());
        std::size_t missing = 0;
        for (const vexa::Setting* setting : vexa::applyOrder()) {
            const auto* key = setting->key == vexa::SettingKey::root ? ROOT : PROFILE;
            const vexa::Value wanted = vexa::settingValue(scene.application.settings, *setting);
            missing += scene.stage->value(key, setting->name) == wanted ? 0U : 1U;
        }
        const bool writeFault = failed.starts_with("registry create") || failed.starts_with("registry set");
        EXPECT_EQ(missing, writeFault ? 1U : 0U);
        EXPECT_EQ(scene.calls.linesWith("addin").size(), 3U);
        if (failed.starts_with("addin")) {
            EXPECT_THAT(scene.log(), Contains("ctlPPE, Error PropertyPage_Apply: The add-in failed"));
        }
    });
    EXPECT_GE(writes, 3 * namesAsWritten().size());
}

TEST(PageFaults, EachCallOfAPollTickMayFailAndTheNextTickRuns) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            scene.start();
            arm();
            scene.user.wait(260);
        },
        [](Scene& scene, const std::string&) {
            scene.stage->addIn().searching = true;
            scene.user.wait(260);
            EXPECT_FALSE(scene.page->cmdSettings.enabled());
            scene.stage->addIn().searching = false;
            scene.user.wait(260);
            EXPECT_TRUE(scene.page->cmdSettings.enabled());
        });
}

class EventFaults : public testing::TestWithParam<int> {};

TEST_P(EventFaults, EachCallOfAnEventMayFailAndThePointerComesBack) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            scene.stage->setValue(ROOT, L"hWndSearchCtl", 4711);
            scene.start();
            arm();
            bool bProcessing = false;
            std::wstring strName = L"Mail";
            std::int32_t nAction = GetParam();
            scene.page->m_KBForm_KBClick(bProcessing, strName, nAction);
        },
        [](Scene& scene, const std::string& failed) {
            EXPECT_EQ(scene.calls.linesWith("pointer").back(), "pointer 0");
            if (failed.starts_with("addin")) {
                EXPECT_THAT(scene.log(), Contains("ctlPPE, Error m_KBForm_KBClick: The add-in failed"));
            }
            const bool firstWriteFailed = !scene.stage->value(PROFILE, L"ProjectEvent").has_value();
            const bool secondWriteFailed = !scene.stage->value(PROFILE, L"ProjectEventName").has_value();
            EXPECT_FALSE(firstWriteFailed && secondWriteFailed);
        });
}

INSTANTIATE_TEST_SUITE_P(Codes, EventFaults, testing::Range(0, 8));

TEST(PageFaults, EachCallOfTheEndMayFailAndTheOthersAreMade) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            scene.start();
            arm();
            scene.page->UserControl_Terminate();
        },
        [](Scene& scene, const std::string& failed) {
            const bool deleteFault =
                failed.starts_with("registry open") || failed.starts_with("registry delete");
            EXPECT_EQ(scene.stage->value(PROFILE, L"hWndProperties").has_value(), deleteFault);
            const bool logFault = failed.starts_with("files");
            if (!logFault) {
                EXPECT_THAT(scene.log(), Contains("ctlPPE, terminated."));
            }
        });
}

}  // namespace
}  // namespace tests
