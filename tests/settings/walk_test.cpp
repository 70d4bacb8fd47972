// Random walks over the search and the attachment settings: after every action the dialog's rules hold, and
// what its closing leaves behind is what it showed.
#include <algorithm>
#include <set>

#include "tests/settings/settings_test_base.h"
#include "tests/support/dice.h"
#include "tests/support/restless_world.h"

namespace tests {
namespace {

const int STEPS = walkLength(100'000);

const Strings TEXTS{L"",      L"0",   L"5",     L"10",         L"60",          L"61", L"100",
                    L"10000", L"-1",  L"abc",   L"65001",      L"99999999999", L" 7", L"3.5",
                    L"1,000", L"1e9", L"00042", L"2147483648", L"(5)"};
const std::wstring CHARACTERS = L"0123456789-+. ,xe$";
const std::vector<int> KEYS{key::back,  key::remove, key::home, key::end, key::left,
                            key::right, key::up,     key::down, key::tab, key::space};

struct Field {
    ui::TextBox& box;
    ui::UpDown& upDown;
};

/// The text and the value of a number field fit together.
void checkField(const Field& field, vexa::Conversions& conversions) {
    const std::int32_t value = field.upDown.value();
    ASSERT_GE(value, field.upDown.minimum());
    ASSERT_LE(value, field.upDown.maximum());
    const std::wstring text = field.box.text();
    if (text.empty()) {
        ASSERT_EQ(value, field.upDown.minimum());
        return;
    }
    const std::int32_t shown = conversions.toInteger(text);
    ASSERT_LE(shown, field.upDown.maximum());
    if (shown >= field.upDown.minimum()) {
        ASSERT_EQ(shown, value);
    }
}

void useField(Dice& dice, User& user, const Field& field) {
    const auto place = [&] { return dice.roll(static_cast<int>(field.box.text().size()) + 1); };
    switch (dice.roll(4)) {
        case 0: return user.type(field.box, std::wstring(1, dice.pick(CHARACTERS)));
        case 1:
            if (dice.oneIn(2)) field.box.select(0, static_cast<int>(field.box.text().size()));
            return user.paste(field.box, dice.pick(TEXTS));
        case 2: return field.box.select(place(), place());
        default: return user.step(field.upDown, dice.oneIn(2));
    }
}

/// A key that does not close the dialog.
template <class Form>
void pressKey(Dice& dice, User& user, Form& form) {
    const int chosen = dice.pick(KEYS);
    const bool closes = form.cmdOk.hasFocus() || form.cmdCancel.hasFocus();
    user.press(form.window(), closes && chosen == key::space ? key::tab : chosen);
}

enum class Ending { ok, cancel };

/// Closes the dialog in one of its ways. Each value that OK writes at once may take its time, or the host may
/// close the page meanwhile: it is stored all the same.
template <class Form>
Ending closeDialog(Dice& dice, SettingsScene& scene, Form& form) {
    User& user = scene.user;
    RestlessWorld world(dice, *scene.stage);
    world.stir();
    if (dice.oneIn(3)) world.hostClosesDuring("registry set");
    switch (dice.roll(5)) {
        case 0: return user.press(form.window(), key::escape), Ending::cancel;
        case 1: return user.closeWindow(form.window()), Ending::cancel;
        case 2: return user.click(form.cmdCancel), Ending::cancel;
        case 3: return scene.stage->closeDialogs(), Ending::cancel;
        default: return user.click(form.cmdOk), Ending::ok;
    }
}

/// Opens a dialog again and again, each time upon another record, and does things in it at random.
template <class Form>
class DialogWalk {
public:
    DialogWalk(SettingsScene& scene, const char* dice) : scene_(scene), dice_{dice} {}
    virtual ~DialogWalk() = default;

    void play(void (SettingsScene::*open)(FunctionRef<void(Form&)>)) {
        while (steps_ < STEPS && !testing::Test::HasFatalFailure()) {
            prepare();
            scene_.application.flags = {};
            (scene_.*open)([this](Form& form) { visit(form); });
        }
    }

protected:
    virtual void prepare() = 0;
    virtual void begin(Form&) {}
    virtual void act(Form& form) = 0;
    virtual void check(Form& form) = 0;
    /// What OK is to make of the record.
    virtual Settings shownBy(Form& form) = 0;
    /// `shown` is the record that OK has made, `before` the one that Cancel has left.
    virtual void checkClosed(bool ok, const Settings& shown, const Settings& before) = 0;

    SettingsScene& scene_;
    Dice dice_;

private:
    void visit(Form& form) {
        const Settings before = scene_.settings;
        begin(form);
        for (int left = dice_.roll(200); left >= 0; --left, ++steps_) {
            act(form);
            check(form);
            if (testing::Test::HasFatalFailure()) return form.window().close();
        }
        ASSERT_TRUE(scene_.settings == before) << "nothing is stored before OK";
        const Settings shown = shownBy(form);
        const bool ok = closeDialog(dice_, scene_, form) == Ending::ok;
        scene_.calls.forgetFaults();
        ASSERT_FALSE(form.window().isOpen());
        ASSERT_TRUE(scene_.settings == (ok ? shown : before));
        checkClosed(ok, shown, before);
    }

    int steps_ = 0;
};

// --- Search settings --------------------------------------------------------------------------------------

class SearchWalk : public DialogWalk<frmSettings> {
public:
    using DialogWalk::DialogWalk;

private:
    void prepare() override {
        static const Strings NAMES{L"Mail", L"Work", L"", L"<None>", L"mail", L"Archive"};
        Settings& settings = scene_.settings;
        Strings names;
        for (int count = dice_.roll(6); count > 0; --count) names.push_back(dice_.pick(NAMES));
        scene_.setKnowledgebases(names);
        scene_.setText(L"DefaultProject", dice_.pick(NAMES));
        settings.AutoInfo = dice_.oneIn(2);
        settings.AutoFindUnread = dice_.oneIn(2);
        settings.AutoFindAll = dice_.oneIn(2);
        settings.FindShortcut = dice_.roll(5) - 2;
        settings.MaxEntries = dice_.roll(12000);
        settings.MinRel = dice_.roll(120) - 10;
        settings.AutoFindDelay = dice_.roll(80) - 10;
        settings.LoggingInformation = !dice_.oneIn(3);
    }

    void checkClosed(bool ok, const Settings& shown, const Settings& before) override {
        if (!ok) {
            ASSERT_EQ(scene_.application.flags, ChangeFlags());
        } else {
            ASSERT_EQ(scene_.application.flags.shortcutChanged, shown.FindShortcut != before.FindShortcut);
        }
    }

    void act(frmSettings& form) override {
        User& user = scene_.user;
        const std::vector<Field> fields = fieldsOf(form);
        switch (dice_.roll(9)) {
            case 0: return user.click(form.chkAutoInfo);
            case 1: return user.click(form.optAutoInfo[dice_.oneIn(2) ? 1 : 0]);
            case 2: return user.click(form.chkLoggingInformation);
            case 3: return user.click(form.cmdSendLog);
            case 4: return user.choose(form.cboSearchShortcut, dice_.roll(2));
            case 5: return user.choose(form.cboDefaultKB, dice_.roll(form.cboDefaultKB.count()));
            case 6: return pressKey(dice_, user, form);
            default: return useField(dice_, user, fields[static_cast<std::size_t>(dice_.roll(3))]);
        }
    }

    static std::vector<Field> fieldsOf(frmSettings& form) {
        return {{form.txtDelay, form.updDelay},
                {form.txtEntryCount, form.updEntryCount},
                {form.txtMinRel, form.updMinRel}};
    }

    void check(frmSettings& form) override {
        ASSERT_TRUE(form.window().isOpen());
        for (const Field& field : fieldsOf(form)) checkField(field, scene_.application.platform.conversions);
        const bool automatic = form.chkAutoInfo.checked();
        for (const ui::Control* control :
             std::initializer_list<const ui::Control*>{&form.optAutoInfo[0].get(), &form.optAutoInfo[1].get(),
                                                       &form.lblDelay, &form.txtDelay, &form.updDelay})
            ASSERT_EQ(control->enabled(), automatic);
        ASSERT_EQ(form.lblSearchShortcut.enabled(), !automatic);
        ASSERT_EQ(form.cboSearchShortcut.enabled(), !automatic);
        ASSERT_TRUE(form.lblDelayInfo.enabled());
        ASSERT_EQ(form.cmdSendLog.enabled(), form.chkLoggingInformation.checked());
        ASSERT_NE(form.optAutoInfo[0].get().selected(), form.optAutoInfo[1].get().selected());
        ASSERT_GE(form.cboDefaultKB.selectedIndex(), 0);
        ASSERT_EQ(form.cboDefaultKB.item(0), L"<None>");
    }

    /// What OK is to make of the record.
    Settings shownBy(frmSettings& form) override {
        Settings shown = scene_.settings;
        const int knowledgebase = form.cboDefaultKB.selectedIndex();
        shown.DefaultProject = knowledgebase == 0 ? std::wstring() : form.cboDefaultKB.item(knowledgebase);
        shown.MaxEntries = form.updEntryCount.value();
        shown.MinRel = form.updMinRel.value();
        shown.AutoInfo = form.chkAutoInfo.checked();
        shown.AutoFindUnread = shown.AutoInfo && form.optAutoInfo[0].get().selected();
        shown.AutoFindAll = shown.AutoInfo && form.optAutoInfo[1].get().selected();
        shown.AutoFindDelay = form.updDelay.value();
        shown.FindShortcut = form.cboSearchShortcut.selectedIndex();
        shown.LoggingInformation = form.chkLoggingInformation.checked();
        return shown;
    }
};

TEST(SettingsWalk, TheSearchDialogKeepsItsRules) {
    SettingsScene scene;
    SearchWalk(scene, "search settings").play(&SettingsScene::openSearch);
}

// --- Attachment settings ----------------------------------------------------------------------------------

class AttachmentWalk : public DialogWalk<frmAttachment> {
public:
    using DialogWalk::DialogWalk;

private:
    void prepare() override {
        Settings& settings = scene_.settings;
        settings.AddAttachments = dice_.oneIn(2);
        settings.AddAllAttachments = dice_.oneIn(2);
        settings.AddSizelimitedAttachments = dice_.oneIn(2);
        settings.AttachmentsMaxSize = dice_.roll(70000) - 1000;
        settings.AddAttachmentsToQuery = dice_.oneIn(2);
        scene_.setText(L"AvailableExtensions", randomList());
        scene_.setText(L"SelectedExtensions", randomList());
    }

    std::wstring randomList() {
        static const Strings PIECES{L"doc", L"PDF", L"txt", L"", L" zip", L".c", L"Doc", L"7z"};
        std::wstring list;
        for (int count = dice_.roll(12); count > 0; --count) list += dice_.pick(PIECES) + L";";
        return dice_.oneIn(4) ? list + L"tail" : list;
    }

    void begin(frmAttachment& form) override {
        extensions_ = allExtensions(form);
        storedBefore_ = scene_.storedText(L"SelectedExtensions");
    }
    void checkClosed(bool ok, const Settings&, const Settings&) override {
        ASSERT_EQ(scene_.storedText(L"SelectedExtensions"), ok ? selected_ : storedBefore_);
        ASSERT_EQ(scene_.application.flags, ChangeFlags());
    }

    void act(frmAttachment& form) override {
        User& user = scene_.user;
        switch (dice_.roll(10)) {
            case 0: return user.click(form.chkKBAdd);
            case 1: return user.click(form.optKBAddAll[dice_.oneIn(2) ? 1 : 0]);
            case 2: return user.click(form.chkFindAtt);
            case 3: return user.pickTab(form.sstAttachments, dice_.roll(2));
            case 4: return user.click(form.cmdAdd);
            case 5: return user.click(form.cmdRemove);
            case 6: return pickItem(dice_.oneIn(2) ? form.lstAvailable : form.lstSelected);
            case 7: return user.press(form.window(), 'A', ui::modifier::control);
            case 8: return pressKey(dice_, user, form);
            default: return useField(dice_, user, {form.txtMaxSize, form.updMaxSize});
        }
    }

    void pickItem(ui::ListBox& list) {
        static const std::vector<int> MODIFIERS{0, ui::modifier::control, ui::modifier::shift};
        if (list.count() > 0) scene_.user.pickItem(list, dice_.roll(list.count()), dice_.pick(MODIFIERS));
    }

    void check(frmAttachment& form) override {
        ASSERT_TRUE(form.window().isOpen());
        checkField({form.txtMaxSize, form.updMaxSize}, scene_.application.platform.conversions);
        const bool add = form.chkKBAdd.checked();
        ASSERT_EQ(form.optKBAddAll[0].get().enabled(), add);
        ASSERT_EQ(form.optKBAddAll[1].get().enabled(), add);
        const bool limited = add && form.optKBAddAll[1].get().selected();
        ASSERT_EQ(form.lblMaxSize.enabled(), limited);
        ASSERT_EQ(form.txtMaxSize.enabled(), limited);
        ASSERT_EQ(form.updMaxSize.enabled(), limited);
        ASSERT_TRUE(form.chkFindAtt.enabled());
        ASSERT_FALSE(form.optKBAddAll[0].get().selected() && form.optKBAddAll[1].get().selected());
        ASSERT_EQ(form.cmdAdd.enabled(), form.lstAvailable.count() > 0);
        ASSERT_EQ(form.cmdRemove.enabled(), form.lstSelected.count() > 0);
        ASSERT_TRUE(allExtensions(form) == extensions_) << "no extension is lost or doubled";
        ASSERT_EQ(form.chkKBAdd.visible(), form.sstAttachments.current() == 0);
        ASSERT_EQ(form.lstAvailable.visible(), form.sstAttachments.current() == 1);
    }

    static std::multiset<std::wstring> allExtensions(frmAttachment& form) {
        std::multiset<std::wstring> all;
        for (const ui::ListBox* list : {&form.lstAvailable, &form.lstSelected})
            for (const std::wstring& item : items(*list)) all.insert(item);
        return all;
    }

    Settings shownBy(frmAttachment& form) override {
        selected_ = joined(form.lstSelected);
        Settings shown = scene_.settings;
        shown.AddAttachments = form.chkKBAdd.checked();
        shown.AddAllAttachments = form.optKBAddAll[0].get().selected();
        shown.AddSizelimitedAttachments = form.optKBAddAll[1].get().selected();
        shown.AttachmentsMaxSize = form.updMaxSize.value();
        shown.AddAttachmentsToQuery = form.chkFindAtt.checked();
        return shown;
    }

    std::multiset<std::wstring> extensions_;
    std::wstring selected_;
    std::wstring storedBefore_;
};

TEST(SettingsWalk, TheAttachmentDialogKeepsItsRules) {
    SettingsScene scene;
    AttachmentWalk(scene, "attachment settings").play(&SettingsScene::openAttachments);
}

}  // namespace
}  // namespace tests
