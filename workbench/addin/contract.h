// The names by which the add-in, the page and Outlook know each other: class names and registry values. All
// values lie below HKEY_CURRENT_USER.
#pragma once

namespace workbench {

inline constexpr const wchar_t* ADDIN_PROG_ID = L"Tarnwell.OlAddIn.1";
inline constexpr const wchar_t* PAGE_PROG_ID = L"VexaPPE.ctlPPE";

/// Values that all profiles share; the subkey named by CurrentProfile holds the others.
inline constexpr const wchar_t* ROOT_KEY = L"Software\\Norvane\\Quillmark";

namespace value {
// Below the root key.
inline constexpr const wchar_t* CurrentProfile = L"CurrentProfile";
inline constexpr const wchar_t* hWndSearchCtl = L"hWndSearchCtl";
inline constexpr const wchar_t* LoggingInformation = L"LoggingInformation";
inline constexpr const wchar_t* SendTo = L"SendTo";
// Below the profile's key.
inline constexpr const wchar_t* hWndProperties = L"hWndProperties";
inline constexpr const wchar_t* LogPath = L"LogPath";
inline constexpr const wchar_t* AvailableExtensions = L"AvailableExtensions";
inline constexpr const wchar_t* SelectedExtensions = L"SelectedExtensions";
inline constexpr const wchar_t* VexaBaseDir = L"VexaBaseDir";
inline constexpr const wchar_t* ProjectCount = L"ProjectCount";
inline constexpr const wchar_t* Project = L"Project";  // followed by the index from 1
inline constexpr const wchar_t* Projectname = L"Projectname";
inline constexpr const wchar_t* DefaultProject = L"DefaultProject";
inline constexpr const wchar_t* ProjectEventName = L"ProjectEventName";
inline constexpr const wchar_t* EditNoChange = L"EditNoChange";
inline constexpr const wchar_t* KBProcessState = L"KBProcessState";
// Below a knowledgebase's own key.
inline constexpr const wchar_t* KBLastUpdate = L"KBLastUpdate";
inline constexpr const wchar_t* KBSize = L"KBSize";
inline constexpr const wchar_t* KBDocuments = L"KBDocuments";
inline constexpr const wchar_t* Foldersize = L"Foldersize";
}  // namespace value

/// KBProcessState of an add-in that has finished and raises no event.
inline constexpr unsigned PROCESSING_ENDED = 3;

// Messages from the page to the search window.
inline constexpr unsigned MESSAGE_START_WIZARD = 1127;
inline constexpr unsigned MESSAGE_EDIT_KNOWLEDGEBASE = 1139;
inline constexpr unsigned KEY_KNOWLEDGEBASE_GONE = 2;

// Key codes and pointer positions that the page's hidden button understands.
inline constexpr unsigned WIZARD_ON = 20;
inline constexpr unsigned WIZARD_OFF = 21;

}  // namespace workbench
