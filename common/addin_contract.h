// The contract with the add-in and its search window: whatever both sides have to agree on, each fact once.
// The settings, which the add-in reads as well, stand in the catalogue (common/settings.cpp); the add-in's
// own operations in interfaces/.
#pragma once

#include <cstdint>

namespace vexa {

/// Key of the values that all profiles share, below HKEY_CURRENT_USER.
inline constexpr const wchar_t* RootKey = L"Software\\Norvane\\Quillmark";

/// The knowledgebase that the add-in begins with.
inline constexpr const wchar_t* DEFAULT_KNOWLEDGEBASE = L"default";

/// Codes of the knowledgebase event, as they stand in `ProjectEvent`.
enum class KBEvent : std::int32_t {
    added = 0,
    removed = 1,
    edited = 2,
    renamed = 3,
    rebuild = 4,
    update = 5,
    wizard = 6
};

/// Values of `KBProcessState`.
namespace processState {
inline constexpr std::int32_t autoUpdate = 1;
inline constexpr std::int32_t command = 2;
inline constexpr std::int32_t ended = 3;
}  // namespace processState

/// Messages from the page to the add-in's search window.
namespace searchMessage {
/// lParam is the address of a 32-bit zero.
inline constexpr std::uint32_t startWizard = 1127;
/// lParam tells whether the add-in processes.
inline constexpr std::uint32_t editKnowledgebase = 1139;
/// A key that goes down (WM_KEYDOWN); the key `knowledgebaseGone` says that what was being removed is gone.
inline constexpr std::uint32_t keyDown = 256;
inline constexpr std::uintptr_t knowledgebaseGone = 2;
}  // namespace searchMessage

/// Key codes, and pointer positions in pixels, by which the add-in switches the wizard button.
namespace wizardSwitch {
inline constexpr int on = 20;
inline constexpr int off = 21;
}  // namespace wizardSwitch

/// Registry values that are exchanged at once. Unless noted they lie below the profile's key.
namespace valueName {
inline constexpr const wchar_t* hWndProperties = L"hWndProperties";
inline constexpr const wchar_t* hWndSearchCtl = L"hWndSearchCtl";  // root key
inline constexpr const wchar_t* hWndKBEdit = L"hWndKBEdit";        // root key
inline constexpr const wchar_t* ProjectEvent = L"ProjectEvent";
inline constexpr const wchar_t* ProjectEventName = L"ProjectEventName";
inline constexpr const wchar_t* OldProjectname = L"OldProjectname";
inline constexpr const wchar_t* KBProcessState = L"KBProcessState";
inline constexpr const wchar_t* EditNoChange = L"EditNoChange";
// The knowledgebases.
inline constexpr const wchar_t* VexaBaseDir = L"VexaBaseDir";
inline constexpr const wchar_t* ProjectCount = L"ProjectCount";
inline constexpr const wchar_t* Project = L"Project";  // followed by the index from 1
inline constexpr const wchar_t* Projectname = L"Projectname";
inline constexpr const wchar_t* DefaultProject = L"DefaultProject";
// Below a knowledgebase's own key, which has its name.
inline constexpr const wchar_t* KBLastUpdate = L"KBLastUpdate";
inline constexpr const wchar_t* KBSize = L"KBSize";
inline constexpr const wchar_t* KBDocuments = L"KBDocuments";
inline constexpr const wchar_t* Foldersize = L"Foldersize";
// What the set-up or the add-in leaves for the page.
inline constexpr const wchar_t* AvailableExtensions = L"AvailableExtensions";
inline constexpr const wchar_t* SelectedExtensions = L"SelectedExtensions";
inline constexpr const wchar_t* AppVer = L"AppVer";  // root key
inline constexpr const wchar_t* SendTo = L"SendTo";  // root key
}  // namespace valueName

}  // namespace vexa
