#include "windows/controls/grid.h"

#include <windowsx.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "windows/controls/popup_menu.h"
#include "windows/controls/screen.h"
#include "windows/controls/window.h"

namespace win {
namespace {

// To the list view itself, when it has done with what it is doing.
constexpr UINT EDIT_ENDED = WM_APP + 10;
constexpr UINT EDIT_WANTED = WM_APP + 11;
constexpr UINT SELECTION_LOST = WM_APP + 12;

constexpr UINT_PTR EDITOR_SUBCLASS = 2;

bool startsWith(const std::wstring& text, const std::wstring& start) {
    const auto length = static_cast<int>(start.size());
    return text.size() >= start.size() &&
           CompareStringOrdinal(text.c_str(), length, start.c_str(), length, TRUE) == CSTR_EQUAL;
}

}  // namespace

Grid::Grid(Window& window, HWND handle) : ControlOf(window, handle) {
    constexpr DWORD EXTENDED = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, EXTENDED, EXTENDED);
    makeImages();
    header_ = reinterpret_cast<HWND>(send(LVM_GETHEADER));
}

Grid::~Grid() {
    forgetHeader();
    if (editor_ != nullptr) RemoveWindowSubclass(editor_, editorProcedure, EDITOR_SUBCLASS);
}

void Grid::makeImages() {
    const HIMAGELIST before = images_;
    const int side = dialog().metric(SM_CXSMICON);
    images_ = ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, 2, 2);
    imageIndices_.clear();
    send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images_));
    if (before != nullptr) ImageList_Destroy(before);
}

void Grid::rescaled() {
    makeImages();
    fitColumns();
    refresh();
}

// --- Columns ----------------------------------------------------------------------------------------------

void Grid::showColumns() {
    while (send(LVM_DELETECOLUMN, 0)) continue;
    for (std::size_t index = 0; index < columns().size(); ++index)
        insertColumn(static_cast<int>(index), columns()[index]);
    fitColumns();
}

void Grid::insertColumn(int index, const ui::GridColumn& column) {
    LVCOLUMNW shown{};
    shown.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
    shown.fmt = column.rightAligned ? LVCFMT_RIGHT : LVCFMT_LEFT;
    shown.iSubItem = index;
    shown.pszText = const_cast<wchar_t*>(column.caption.c_str());  // only read
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&shown));
}

/// The columns fill the list: the last one takes what the others' shares leave, so that no stub of a header
/// stands behind it.
void Grid::fitColumns() {
    RECT area{};
    GetClientRect(window(), &area);
    fittedWidth_ = area.right;
    int left = 0;
    for (std::size_t index = 0; index < columns().size(); ++index) {
        const bool last = index + 1 == columns().size();
        const int width = last ? area.right - left : area.right * columns()[index].share / 100;
        send(LVM_SETCOLUMNWIDTH, index, MAKELPARAM(width, 0));
        left += width;
    }
}

void Grid::showSortArrow(int column) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_STRING | (columns()[static_cast<std::size_t>(column)].rightAligned ? HDF_RIGHT : HDF_LEFT);
    if (sortArrow(column) == ui::SortArrow::up) item.fmt |= HDF_SORTUP;
    if (sortArrow(column) == ui::SortArrow::down) item.fmt |= HDF_SORTDOWN;
    SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    tellReaders();
    if (headerNamed_) nameHeader();
}

// --- Screen readers ---------------------------------------------------------------------------------------

/// What the header shows by an arrow; empty where it shows none.
std::wstring Grid::sortText(int column) const {
    if (sortArrow(column) == ui::SortArrow::none) return {};
    return sortArrow(column) == ui::SortArrow::up ? L", ascending" : L", descending";
}

/// What the arrow and the grey rows show.
std::wstring Grid::accessibleValue() const {
    std::wstring text = greyed_ ? L"Locked" : L"";
    for (int column = 0; column < static_cast<int>(columns().size()); ++column) {
        if (sortText(column).empty()) continue;
        if (!text.empty()) text += L". ";
        text += L"Sorted by " + columns()[static_cast<std::size_t>(column)].caption + sortText(column);
    }
    return text;
}

void Grid::nameHeader() {
    std::vector<std::wstring> names;
    for (int column = 0; column < static_cast<int>(columns().size()); ++column) {
        const std::wstring sort = sortText(column);
        names.push_back(columns()[static_cast<std::size_t>(column)].caption +
                        (sort.empty() ? sort : L", sorted" + sort));
    }
    dialog().screen().annotations().nameParts(header_, names);
    headerNamed_ = true;
}

void Grid::forgetHeader() noexcept {
    if (std::exchange(headerNamed_, false))
        dialog().screen().annotations().forgetParts(header_, columns().size());
}

// --- Rows -------------------------------------------------------------------------------------------------

void Grid::showRows() noexcept {
    if (shownRows_ != rowCount()) {
        shownRows_ = rowCount();
        // Fewer rows may take the selected one away without a word.
        if (selected_ >= shownRows_) selected_ = -1;
        send(LVM_SETITEMCOUNT, static_cast<WPARAM>(shownRows_));
    }
    const bool greyed = allGreyed();
    if (std::exchange(greyed_, greyed) != greyed) tellReaders();
    showCurrentRow();
    refresh();
}

void Grid::refresh() {
    if (window() != nullptr) InvalidateRect(window(), nullptr, TRUE);
}

void Grid::showSoFar() {
    showRows();
    dialog().present();
}

void Grid::showCurrentRow() {
    telling_ = true;
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    // Where another row is selected, the list view itself takes the selection from the one before.
    if (selected_ != -1 && currentRow() == -1)
        send(LVM_SETITEMSTATE, static_cast<WPARAM>(selected_), reinterpret_cast<LPARAM>(&state));
    selected_ = currentRow();
    if (currentRow() != -1) {
        state.state = state.stateMask;
        send(LVM_SETITEMSTATE, static_cast<WPARAM>(currentRow()), reinterpret_cast<LPARAM>(&state));
        send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(currentRow()), FALSE);
    }
    telling_ = false;
}

void Grid::describe(LVITEMW& item) {
    if (item.iItem < 0 || item.iItem >= rowCount()) return;
    if ((item.mask & LVIF_TEXT) && item.pszText != nullptr && item.cchTextMax > 0)
        lstrcpynW(item.pszText, cellText(item.iItem, item.iSubItem).c_str(), item.cchTextMax);
    if (item.mask & LVIF_IMAGE) item.iImage = imageOf(row(item.iItem).picture);
    if (item.mask & LVIF_INDENT) item.iIndent = row(item.iItem).indent;
}

int Grid::imageOf(int picture) {
    if (picture == 0) return I_IMAGENONE;
    const auto known = imageIndices_.find(picture);
    if (known != imageIndices_.end()) return known->second;
    return imageIndices_[picture] = addImage(picture);
}

int Grid::addImage(int picture) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images_, &width, &height);
    const HICON icon = dialog().screen().icons().icon(picture, width, height);
    return icon == nullptr ? I_IMAGENONE : ImageList_ReplaceIcon(images_, -1, icon);
}

/// Typing the start of a name leads to its row.
LRESULT Grid::findRow(const NMLVFINDITEMW& wanted) const {
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr) return -1;
    for (int step = 0; step < rowCount(); ++step) {
        const int row = (std::max(wanted.iStart, 0) + step) % rowCount();
        if (startsWith(cellText(row, 0), wanted.lvfi.psz)) return row;
    }
    return -1;
}

LRESULT Grid::draw(NMLVCUSTOMDRAW& drawing) const {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    const auto row = static_cast<int>(drawing.nmcd.dwItemSpec);
    if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || row >= rowCount()) return CDRF_DODEFAULT;
    // The list view's own mark of the selected row is no more than a shade without the focus, and in some
    // schemes nothing at all. It says of every row that it is selected, so that the program has to know.
    const bool isCurrent = row == currentRow();
    const bool isPale = !this->row(row).enabled;
    if (!isPale && (!isCurrent || GetFocus() == window())) return CDRF_DODEFAULT;
    drawing.clrText = GetSysColor(COLOR_GRAYTEXT);
    if (isCurrent) {
        // As long as the list view takes it for selected, it shows its own colours. Greyed text turned inside
        // out is as legible as greyed text is, in any scheme, and tells the row from the others.
        drawing.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
        drawing.clrTextBk = std::exchange(drawing.clrText, GetSysColor(COLOR_WINDOW));
    }
    return CDRF_NEWFONT;
}

// --- What the list view tells -----------------------------------------------------------------------------

std::optional<LRESULT> Grid::onNotify(NMHDR& notification) {
    switch (notification.code) {
        case LVN_GETDISPINFOW: describe(reinterpret_cast<NMLVDISPINFOW&>(notification).item); return 0;
        case LVN_ODFINDITEMW: return findRow(reinterpret_cast<NMLVFINDITEMW&>(notification));
        case NM_CUSTOMDRAW: return draw(reinterpret_cast<NMLVCUSTOMDRAW&>(notification));
        case LVN_ITEMCHANGED: stateChanged(reinterpret_cast<NMLISTVIEW&>(notification)); return 0;
        case LVN_COLUMNCLICK:
            raise(onHeaderClick, reinterpret_cast<NMLISTVIEW&>(notification).iSubItem);
            return 0;
        case NM_CLICK: clicked(reinterpret_cast<NMITEMACTIVATE&>(notification).iItem); return 0;
        case NM_DBLCLK: {
            const int row = reinterpret_cast<NMITEMACTIVATE&>(notification).iItem;
            if (row >= 0 && row < rowCount()) raise(onDoubleClick, row);
            return 0;
        }
        case LVN_KEYDOWN:
            if (reinterpret_cast<NMLVKEYDOWN&>(notification).wVKey == VK_F2 && currentRow() != -1)
                raise(onBeginEdit, currentRow());
            return 0;
        case LVN_BEGINLABELEDITW:
            return editorOpens(reinterpret_cast<NMLVDISPINFOW&>(notification).item.iItem);
        case LVN_ENDLABELEDITW: editorCloses(); return FALSE;  // the program keeps the texts
        default: return std::nullopt;
    }
}

void Grid::stateChanged(const NMLISTVIEW& change) {
    const bool selected = (change.uNewState & LVIS_SELECTED) != 0 && (change.uOldState & LVIS_SELECTED) == 0;
    const bool lost = (change.uNewState & LVIS_SELECTED) == 0 && (change.uOldState & LVIS_SELECTED) != 0;
    // A key or a click that only deselects leaves the row current; what commands act on has to be seen.
    if (!telling_ && lost) PostMessageW(window(), SELECTION_LOST, 0, 0);
    if (telling_ || !selected || change.iItem < 0 || change.iItem >= rowCount()) return;
    selected_ = change.iItem;
    userMovedTo(change.iItem);
}

void Grid::clicked(int row) {
    if (row >= 0 && row < rowCount()) return raise(onRowClick, row);
    showCurrentRow();  // a click beside the rows does not take the current one away
}

// --- The menu ---------------------------------------------------------------------------------------------

void Grid::openMenu(LPARAM pointer) {
    const std::vector<ui::GridCommand> commands = menu();
    if (commands.empty()) return;
    std::vector<std::wstring> texts;
    for (const ui::GridCommand& command : commands) texts.push_back(command.text);
    const int chosen = PopupMenu(texts).ask(dialog().window(), menuPlace(pointer));
    if (chosen > 0) commands[static_cast<std::size_t>(chosen) - 1].run();
}

/// The pointer's place; for a key, the current row's. In screen pixels.
RECT Grid::menuPlace(LPARAM pointer) const {
    constexpr LPARAM BY_KEY = -1;
    RECT area{GET_X_LPARAM(pointer), GET_Y_LPARAM(pointer), GET_X_LPARAM(pointer), GET_Y_LPARAM(pointer)};
    if (pointer != BY_KEY) return area;
    area = {LVIR_LABEL, 0, 0, 0};
    const bool known = currentRow() != -1 && send(LVM_GETITEMRECT, static_cast<WPARAM>(currentRow()),
                                                  reinterpret_cast<LPARAM>(&area)) != 0;
    if (!known) area = {};
    MapWindowPoints(window(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

// --- The in-place editor ----------------------------------------------------------------------------------

void Grid::showEditor(int row) {
    focus();  // the list view edits only while it has the focus
    escaped_ = false;
    left_.reset();
    opening_ = true;
    const LRESULT editor = send(LVM_EDITLABELW, static_cast<WPARAM>(row));
    opening_ = false;
    if (editor == 0) throw std::runtime_error("the list view opens no editor");
    showWholeText(reinterpret_cast<HWND>(editor), cellText(row, 0));
}

/// The list view cuts what it gives its editor, and what may be typed there, after 259 characters.
void Grid::showWholeText(HWND editor, const std::wstring& text) {
    SendMessageW(editor, EM_SETLIMITTEXT, 0, 0);
    if (win::windowText(editor) == text) return;
    SetWindowTextW(editor, text.c_str());
    SendMessageW(editor, EM_SETSEL, 0, -1);
}

LRESULT Grid::editorOpens(int row) {
    if (!opening_) {
        PostMessageW(window(), EDIT_WANTED, static_cast<WPARAM>(row), 0);
        return TRUE;
    }
    editor_ = reinterpret_cast<HWND>(send(LVM_GETEDITCONTROL));
    if (editor_ != nullptr)
        SetWindowSubclass(editor_, editorProcedure, EDITOR_SUBCLASS, reinterpret_cast<DWORD_PTR>(this));
    return FALSE;
}

LRESULT CALLBACK Grid::editorProcedure(HWND editor, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR grid) noexcept {
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) reinterpret_cast<Grid*>(grid)->escaped_ = true;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(editor, editorProcedure, EDITOR_SUBCLASS);
    return DefSubclassProc(editor, message, wParam, lParam);
}

/// The list view says the same of a cancelled, an unchanged and an emptied text: the editor knows better.
/// What follows may ask questions or open the editor again, so it waits until the list view has done.
void Grid::editorCloses() {
    if (editor_ == nullptr) return;
    const std::wstring text = win::windowText(editor_);
    RemoveWindowSubclass(editor_, editorProcedure, EDITOR_SUBCLASS);
    editor_ = nullptr;
    left_ = EditorContent{text, escaped_};
    if (!taking_) PostMessageW(window(), EDIT_ENDED, 0, 0);
}

ui::Grid::EditorContent Grid::takeEditor() {
    if (!left_) {
        taking_ = true;
        send(LVM_CANCELEDITLABEL);
        taking_ = false;
    }
    const EditorContent content = left_.value_or(EditorContent{L"", true});
    left_.reset();
    return content;
}

std::optional<LRESULT> Grid::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (asksForObject(message, lParam)) nameHeader();
    if (message == WM_DESTROY) forgetHeader();
    if (message == EDIT_ENDED) {
        if (left_) finishEdit();
        return 0;
    }
    if (message == SELECTION_LOST) {
        const bool seen = currentRow() == -1 ||
                          send(LVM_GETITEMSTATE, static_cast<WPARAM>(currentRow()), LVIS_SELECTED) != 0;
        if (!seen) showCurrentRow();
        return 0;
    }
    // A scroll bar that comes or goes changes the room for the columns.
    if (message == WM_SIZE && LOWORD(lParam) != fittedWidth_) fitColumns();
    if (message == WM_GETDLGCODE && wantsEnter && lParam != 0) {
        const auto& asked = *reinterpret_cast<const MSG*>(lParam);
        if (asked.message == WM_KEYDOWN && asked.wParam == VK_RETURN) return DLGC_WANTALLKEYS;
    }
    if (message == WM_CONTEXTMENU) {
        openMenu(lParam);
        return 0;
    }
    if (message != EDIT_WANTED) return std::nullopt;
    const auto row = static_cast<int>(wParam);
    if (row < rowCount() && editedRow() == -1) raise(onBeginEdit, row);
    return 0;
}

}  // namespace win
