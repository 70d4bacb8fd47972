// The workbench's command line.
#pragma once

#include <string>
#include <vector>

#include "workbench/addin/stand_in.h"

namespace workbench {

struct CommandLine {
    // What is done first, in this order. Where nothing else is asked, the program then ends.
    bool help = false;
    bool version = false;
    bool registerClass = false;
    bool unregisterClass = false;
    bool sample = false;
    bool dump = false;
    bool finishNow = false;
    bool autoUpdate = false;

    // The windows.
    bool showOptions = false;
    bool exitAfterOptions = false;
    bool addInRuns = true;
    std::wstring pageFile;  ///< the page's component where it is not to be taken from the registry
    std::wstring logFile;
    std::vector<int> presses;  ///< IDOK, IDCANCEL or IDC_apply: pressed in this order once the page is shown
    Behaviour behaviour;
    Weather weather;

    /// An argument that is not understood, or lacks its value.
    std::wstring fault;

    [[nodiscard]] bool onlyPreparations() const {
        return (help || version || registerClass || unregisterClass || sample || dump || finishNow ||
                autoUpdate) &&
               !showOptions;
    }
};

[[nodiscard]] CommandLine readCommandLine();
[[nodiscard]] std::wstring usage();

/// The operations that can be made to fail, by name.
inline constexpr const wchar_t* OPERATIONS[] = {
    L"SetDefaultKnowledgebase", L"SetLogging",      L"NotifyKbAdded",   L"NotifyKbRemoved",
    L"NotifyKbRenamed",         L"NotifyKbRebuild", L"NotifyKbUpdate",  L"IsProcessing",
    L"IsAutoUpdateRunning",     L"SendMail",        L"SetFindShortcut", L"IsSearching",
};

}  // namespace workbench
