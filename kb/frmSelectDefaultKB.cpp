#include "kb/frmSelectDefaultKB.h"

#include "common/guarded.h"
#include "common/knowledgebase_names.h"
#include "kb/kb_icons.ids.h"

namespace vexa {
namespace {

constexpr const wchar_t* NAME = L"frmSelectDefaultKB";
constexpr int ROW_NONE = 0;

}  // namespace

frmSelectDefaultKB::frmSelectDefaultKB(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmSelectDefaultKB, &owner)), application_(application) {
    sftKnowledgebases.setColumns({{L"Knowledgebase", 100}});
    sftKnowledgebases.onDoubleClick = [this](int) { cmdOK_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { Unload(); };
}

void frmSelectDefaultKB::Form_Load() {
    attempt([&] { fillList(); });
    attempt([&] { sftKnowledgebases.setCurrentRow(ROW_NONE); });
}

void frmSelectDefaultKB::fillList() {
    const ui::Grid::BulkUpdate bulk(sftKnowledgebases);
    sftKnowledgebases.addRow({{{NO_KNOWLEDGEBASE}}});
    const std::int32_t count = knowledgebaseCount(application_);
    for (std::int32_t index = 1; index <= count; ++index)
        sftKnowledgebases.addRow({{{knowledgebaseName(application_, index, L"")}}, IDI_kb});
}

void frmSelectDefaultKB::cmdOK_Click() {
    guarded(application_, NAME, L"cmdOK_Click", [&] {
        const int row = sftKnowledgebases.currentRow();
        std::wstring name;
        if (row > ROW_NONE) name = sftKnowledgebases.cellText(row, 0);
        application_.settings.DefaultProject = name;
    });
    Unload();
}

}  // namespace vexa
