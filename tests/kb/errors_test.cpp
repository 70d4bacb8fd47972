// Each handler of the knowledgebase dialog that fails leaves its line in the log, under its own name, and the
// dialog goes on.
#include <stdexcept>

#include "common/error.h"
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

/// The machine's conversions, until they fail.
class FailingConversions : public vexa::Conversions {
public:
    explicit FailingConversions(vexa::Conversions& machine) : machine_(machine) {}
    bool failing = false;

    std::int32_t toInteger(const std::wstring& text) override { return machine().toInteger(text); }
    double toDate(const std::wstring& text) override { return machine().toDate(text); }
    std::wstring lower(const std::wstring& text) override { return machine().lower(text); }

private:
    vexa::Conversions& machine() {
        if (failing) throw std::runtime_error("The machine failed");
        return machine_;
    }
    vexa::Conversions& machine_;
};

[[noreturn]] void fail() { throw vexa::Error(L"It failed"); }

class KBErrors : public KBMailAndNews {
public:
    KBErrors() {
        SetUp();
        own.ProfileKey = application.ProfileKey;
        own.addIn = application.addIn;
        own.settings = application.settings;
        own.log.LogPath = application.log.LogPath;
    }
    void TestBody() override {}

    /// The dialog on conversions that may fail, and a page that takes every command.
    void play(FunctionRef<void(frmKBConfiguration&)> script) {
        stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
            script(form);
            conversions.failing = false;
            calls.forgetFaults();
            if (form.window().isOpen()) user.closeWindow(form.window());
        });
        frmKBConfiguration form(own, stage->owner());
        form.KBClick = [](bool&, std::wstring&, std::int32_t&) { return true; };
        form.Show();
    }
    void store(const wchar_t* key, const wchar_t* name, const vexa::Value& value) {
        stage->setValue(std::wstring(KEY) + key, name, value);
    }

    FailingConversions conversions{application.platform.conversions};
    vexa::Application own{
        vexa::Platform{application.platform.registry, application.platform.ansi, conversions,
                       application.platform.files, application.platform.clock, application.platform.addIns,
                       application.platform.desktop, application.platform.timers},
        application.screen};
};

struct Failure {
    const char* procedure;
    void (*beforeLoading)(KBErrors&);
    void (*script)(KBErrors&, frmKBConfiguration&);
};

const Failure FAILURES[] = {
    {"connectAddIn", [](KBErrors& scene) { scene.calls.failCallsWith("addin connect"); }, nullptr},
    {"Form_Load", [](KBErrors& scene) { scene.calls.failCallsWith("addin IsProcessing"); }, nullptr},
    {"UpdateListView", [](KBErrors& scene) { scene.calls.during("doevents", fail); }, nullptr},
    {"CaretChange", [](KBErrors& scene) { scene.store(L"\\Mail", L"KBDocuments", std::wstring(L"7")); },
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.conversions.failing = true;
         scene.choose(form, L"Mail");
     }},
    {"GetNewKBName", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.conversions.failing = true;
         scene.user.click(form.cmdAdd);
         EXPECT_EQ(form.sftKBConfiguration.rowCount(), 2);
         EXPECT_TRUE(form.cmdAdd.enabled());
     }},
    {"KBNameExists", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.user.click(form.cmdAdd);
         scene.conversions.failing = true;
         scene.enter(form, L"Post");
         EXPECT_EQ(form.sftKBConfiguration.rowCount(), 2) << "the new row has gone";
         EXPECT_TRUE(form.cmdAdd.enabled());
     }},
    {"PostEdit", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.user.click(form.cmdAdd);
         scene.calls.failCallsWith("addin IsAutoUpdateRunning");
         scene.enter(form, L"Post");
         EXPECT_TRUE(form.cmdAdd.enabled());
     }},
    {"LockForm", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.choose(form, L"Mail");
         scene.calls.during("doevents", fail);
         scene.user.click(form.cmdUpdate);
         EXPECT_TRUE(form.locked()) << "the add-in has the command";
     }},
    {"tmrLock_Timer", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.lockByUpdate(form);
         scene.conversions.failing = true;
         scene.endByTick();
         EXPECT_FALSE(form.locked());
     }},
    {"mvarTeskAddIn_ProcessFinished", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.removeMail(form);
         scene.calls.during("message 4711 256", fail);
         scene.addIn.finish(L"Mail", false);
         EXPECT_FALSE(form.locked());
     }},
    {"Form_QueryUnload", nullptr,
     [](KBErrors& scene, frmKBConfiguration& form) {
         scene.choose(form, L"Mail");
         scene.user.click(form.cmdAdd);
         form.sftKBConfiguration.onCaretChange = fail;
         scene.user.closeWindow(form.window());
         EXPECT_FALSE(form.window().isOpen());
     }},
};

class KBErrorLines : public testing::TestWithParam<Failure> {};

TEST_P(KBErrorLines, NameTheProcedureAndSayWhatFailed) {
    KBErrors scene;
    if (GetParam().beforeLoading != nullptr) GetParam().beforeLoading(scene);
    scene.play([&](frmKBConfiguration& form) {
        if (GetParam().script != nullptr) GetParam().script(scene, form);
        if (form.locked() || !form.window().isOpen()) return;
        EXPECT_TRUE(form.cmdAdd.enabled());
        for (int row = 0; row < form.sftKBConfiguration.rowCount(); ++row)
            EXPECT_TRUE(form.sftKBConfiguration.row(row).enabled);
    });
    const std::string line = std::string("frmKBConfiguration, Error ") + GetParam().procedure + ": ";
    EXPECT_THAT(scene.log(), Contains(testing::AllOf(StartsWith(line), SizeIs(testing::Gt(line.size())))));
    EXPECT_THAT(scene.log(), Contains("frmKBConfiguration, Loading..."));
}

INSTANTIATE_TEST_SUITE_P(Procedures, KBErrorLines, testing::ValuesIn(FAILURES),
                         [](const auto& test) { return std::string(test.param.procedure); });

}  // namespace
}  // namespace tests
