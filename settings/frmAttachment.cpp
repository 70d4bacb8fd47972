#include "settings/frmAttachment.h"

#include <optional>

#include "common/guarded.h"
#include "settings/extension_list.h"

namespace vexa {
namespace {

constexpr int TAB_KNOWLEDGEBASE = 0;
constexpr int TAB_EXTENSIONS = 1;
constexpr int KEY_A = 'A';

void fill(ui::ListBox& list, const std::vector<std::wstring>& items) {
    const ui::ListBoxUpdate update(list);
    for (const std::wstring& item : items) list.add(item);
    if (list.count() > 0) list.setSelected(0, true);
}

std::vector<std::wstring> itemsOf(const ui::ListBox& list) {
    std::vector<std::wstring> items;
    items.reserve(static_cast<std::size_t>(list.count()));
    for (int index = 0; index < list.count(); ++index) items.push_back(list.item(index));
    return items;
}

void selectAllOnCtrlA(ui::ListBox& list, ui::KeyEvent& event) {
    if (event.key != KEY_A || (event.modifiers & ui::modifier::control) == 0) return;
    // The list would look for an item that begins with the key's character.
    event.key = 0;
    attempt([&] { list.selectAll(true); });
}

}  // namespace

frmAttachment::frmAttachment(Application& application, ui::Window& owner)
    : OkCancelForm(application.screen.createDialog(IDD_frmAttachment, &owner)),
      application_(application),
      maxSize_(txtMaxSize, updMaxSize, boundsOf(&Settings::AttachmentsMaxSize),
               application.platform.conversions),
      table_{{chkKBAdd, &Settings::AddAttachments},
             {optKBAddAll[0], &Settings::AddAllAttachments},
             {optKBAddAll[1], &Settings::AddSizelimitedAttachments},
             {updMaxSize, &Settings::AttachmentsMaxSize},
             {chkFindAtt, &Settings::AddAttachmentsToQuery}},
      pages_{
          {{&fraAttKB, &chkKBAdd, &optKBAddAll[0].get(), &optKBAddAll[1].get(), &lblMaxSize, &txtMaxSize,
            &updMaxSize, &chkFindAtt},
           {&fraExtensions, &lblAvailable, &lstAvailable, &cmdAdd, &cmdRemove, &lblSelected, &lstSelected}}} {
    describeControls();
    connectHandlers();
}

void frmAttachment::describeControls() {
    sstAttachments.addTab(L"Knowledgebase");
    sstAttachments.addTab(L"Extensions");
    cmdAdd.setTooltip(L"Add to the selected extensions");
    cmdRemove.setTooltip(L"Remove from the selected extensions");
}

void frmAttachment::connectHandlers() {
    sstAttachments.onClick = [this] { sstAttachments_Click(); };
    chkKBAdd.onClick = [this] { chkKBAdd_Click(); };
    for (ui::OptionButton& option : optKBAddAll) option.onClick = [this] { optKBAddAll_Click(); };
    cmdAdd.onClick = [this] { cmdAdd_Click(); };
    cmdRemove.onClick = [this] { cmdRemove_Click(); };
    lstAvailable.onKeyDown = [this](ui::KeyEvent& event) { lstAvailable_KeyDown(event); };
    lstSelected.onKeyDown = [this](ui::KeyEvent& event) { lstSelected_KeyDown(event); };
}

// --- Loading ----------------------------------------------------------------------------------------------

void frmAttachment::Form_Load() {
    attempt([&] { showPage(TAB_KNOWLEDGEBASE); });
    loadTable(table_, application_.settings);
    chkKBAdd_Click();
    loadExtensions();
    attempt([&] { enableMoveButtons(); });
}

void frmAttachment::loadExtensions() {
    std::vector<std::wstring> available;
    std::optional<std::vector<std::wstring>> selected;
    attempt([&] { available = readExtensions(valueName::AvailableExtensions); });
    attempt([&] { selected = readExtensions(valueName::SelectedExtensions); });
    attempt([&] {
        fill(lstAvailable, withoutSelected(available, selected.value_or(std::vector<std::wstring>())));
    });
    attempt([&] {
        fill(lstSelected, selected.value());
        allSelectedShown_ = true;
    });
}

std::vector<std::wstring> frmAttachment::readExtensions(const wchar_t* name) {
    const std::wstring list = application_.readText(application_.ProfileKey, name, L"");
    return splitExtensions(application_.platform.conversions.lower(list));
}

// --- Enabling ---------------------------------------------------------------------------------------------

void frmAttachment::chkKBAdd_Click() {
    attempt([&] {
        for (ui::OptionButton& option : optKBAddAll) option.setEnabled(chkKBAdd.checked());
        enableSizeField(chkKBAdd.checked() && optKBAddAll[1].get().selected());
    });
}

void frmAttachment::optKBAddAll_Click() {
    attempt([&] { enableSizeField(optKBAddAll[1].get().selected()); });
}

void frmAttachment::enableSizeField(bool enabled) {
    lblMaxSize.setEnabled(enabled);
    txtMaxSize.setEnabled(enabled);
    updMaxSize.setEnabled(enabled);
}

void frmAttachment::enableMoveButtons() {
    cmdAdd.setEnabled(lstAvailable.count() > 0);
    cmdRemove.setEnabled(lstSelected.count() > 0);
}

// --- Extensions -------------------------------------------------------------------------------------------

void frmAttachment::cmdAdd_Click() { moveSelected(lstAvailable, lstSelected); }

void frmAttachment::cmdRemove_Click() { moveSelected(lstSelected, lstAvailable); }

void frmAttachment::moveSelected(ui::ListBox& source, ui::ListBox& target) {
    // Where a list takes no more items, the rest of the rule holds for what has been moved.
    attempt([&] { moveItems(source, target); });
    attempt([&] {
        if (source.count() > 0) source.setSelected(0, true);
    });
    attempt([&] { enableMoveButtons(); });
}

void frmAttachment::moveItems(ui::ListBox& source, ui::ListBox& target) {
    const ui::ListBoxUpdate sourceUpdate(source);
    const ui::ListBoxUpdate targetUpdate(target);
    target.selectAll(false);
    // From the last to the first, so that the indexes of the items still to come stay valid.
    for (int index = source.count() - 1; index >= 0; --index) {
        if (!source.selected(index)) continue;
        const int added = target.add(source.item(index));
        source.remove(index);
        target.setSelected(added, true);
    }
}

void frmAttachment::lstAvailable_KeyDown(ui::KeyEvent& event) { selectAllOnCtrlA(lstAvailable, event); }

void frmAttachment::lstSelected_KeyDown(ui::KeyEvent& event) { selectAllOnCtrlA(lstSelected, event); }

// --- Tabs -------------------------------------------------------------------------------------------------

void frmAttachment::sstAttachments_Click() {
    attempt([&] {
        const int tab = sstAttachments.current();
        showPage(tab);
        if (tab == TAB_KNOWLEDGEBASE) chkKBAdd.setFocus();
        if (tab == TAB_EXTENSIONS) lstAvailable.setFocus();
    });
}

void frmAttachment::showPage(int tab) {
    for (int page = 0; page < static_cast<int>(pages_.size()); ++page)
        for (ui::Control* control : pages_[static_cast<std::size_t>(page)]) control->setVisible(page == tab);
}

// --- Storing ----------------------------------------------------------------------------------------------

void frmAttachment::cmdOK_Click() {
    attempt([&] { storeSelectedExtensions(); });
    for (const SettingRow& row : table_) attempt([&] { store(row); });
}

void frmAttachment::storeSelectedExtensions() {
    // A list that could not be shown whole must not take the place of the stored one.
    if (!allSelectedShown_) return;
    application_.writeText(application_.ProfileKey, valueName::SelectedExtensions,
                           joinExtensions(itemsOf(lstSelected)));
}

void frmAttachment::store(const SettingRow& row) {
    application_.writeInteger(application_.ProfileKey, row.setting().name, row.shown());
    row.store(application_.settings);
}

}  // namespace vexa
