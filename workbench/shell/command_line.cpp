#include "workbench/shell/command_line.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <vector>

#include "workbench/workbench.ids.h"

namespace workbench {
namespace {

std::vector<std::wstring> arguments() {
    int count = 0;
    wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
    if (texts == nullptr) return {};
    std::vector<std::wstring> result(texts + 1, texts + count);
    LocalFree(texts);
    return result;
}

/// "OPERATION=TEXT" or "OPERATION".
void readFailure(CommandLine& line, const std::wstring& text) {
    const std::size_t end = text.find(L'=');
    const std::wstring operation = text.substr(0, end);
    if (std::ranges::find(OPERATIONS, operation) == std::end(OPERATIONS))
        line.fault = L"--fail " + text;
    else
        line.behaviour.failures[operation] = end == std::wstring::npos ? L"" : text.substr(end + 1);
}

void readPress(CommandLine& line, const std::wstring& button) {
    const std::map<std::wstring, int> buttons{{L"ok", IDOK}, {L"cancel", IDCANCEL}, {L"apply", IDC_apply}};
    const auto found = buttons.find(button);
    if (found == buttons.end())
        line.fault = L"--press " + button;
    else
        line.presses.push_back(found->second);
}

/// Reads milliseconds into a member of a part of the command line.
template <class Part>
auto time(const wchar_t* option, Part CommandLine::*part, unsigned Part::*member) {
    return [=](CommandLine& line, const std::wstring& text) {
        wchar_t* end = nullptr;
        (line.*part).*member = std::wcstoul(text.c_str(), &end, 10);
        if (text.empty() || *end != L'\0') line.fault = std::wstring(option) + L" " + text;
    };
}

using Switch = std::function<void(CommandLine&)>;
using Option = std::function<void(CommandLine&, const std::wstring&)>;

const std::map<std::wstring, Switch> SWITCHES{
    {L"--help", [](CommandLine& line) { line.help = true; }},
    {L"--version", [](CommandLine& line) { line.version = true; }},
    {L"--register", [](CommandLine& line) { line.registerClass = true; }},
    {L"--unregister", [](CommandLine& line) { line.unregisterClass = true; }},
    {L"--sample", [](CommandLine& line) { line.sample = true; }},
    {L"--dump", [](CommandLine& line) { line.dump = true; }},
    {L"--finish-now", [](CommandLine& line) { line.finishNow = true; }},
    {L"--auto-update", [](CommandLine& line) { line.autoUpdate = true; }},
    {L"--show-options", [](CommandLine& line) { line.showOptions = true; }},
    {L"--exit-after-options", [](CommandLine& line) { line.exitAfterOptions = true; }},
    {L"--no-addin", [](CommandLine& line) { line.addInRuns = false; }},
    {L"--searching", [](CommandLine& line) { line.behaviour.searching = true; }},
    {L"--processing", [](CommandLine& line) { line.behaviour.processing = true; }},
    {L"--ends-by-state", [](CommandLine& line) { line.behaviour.finishesByState = true; }},
    {L"--keeps-list", [](CommandLine& line) { line.behaviour.keepsList = true; }},
    {L"--hung-search-window", [](CommandLine& line) { line.weather.hungSearchWindow = true; }},
    {L"--event-from-thread", [](CommandLine& line) { line.weather.eventFromThread = true; }},
    {L"--pumps", [](CommandLine& line) { line.weather.pumps = true; }},
    {L"--edit-no-change", [](CommandLine& line) { line.behaviour.editNoChange = true; }},
};

const std::map<std::wstring, Option> OPTIONS{
    {L"--ocx", [](CommandLine& line, const std::wstring& text) { line.pageFile = text; }},
    {L"--log", [](CommandLine& line, const std::wstring& text) { line.logFile = text; }},
    {L"--eml", [](CommandLine& line, const std::wstring& text) { line.behaviour.mailFolder = text; }},
    {L"--work-time", time(L"--work-time", &CommandLine::behaviour, &Behaviour::workTime)},
    {L"--searching-time", time(L"--searching-time", &CommandLine::weather, &Weather::searchingTime)},
    {L"--base-folder-time", time(L"--base-folder-time", &CommandLine::weather, &Weather::baseFolderTime)},
    {L"--fail", readFailure},
    {L"--press", readPress},
};

}  // namespace

CommandLine readCommandLine() {
    CommandLine line;
    const std::vector<std::wstring> words = arguments();
    for (std::size_t i = 0; i < words.size() && line.fault.empty(); ++i) {
        const auto found = SWITCHES.find(words[i]);
        const auto option = OPTIONS.find(words[i]);
        if (found != SWITCHES.end())
            found->second(line);
        else if (option != OPTIONS.end() && i + 1 < words.size())
            option->second(line, words[++i]);
        else
            line.fault = words[i];
    }
    return line;
}

std::wstring usage() {
    std::wstring text =
        L"workbench [PREPARATION ...] [OPTION ...]\n\n"
        L"Shows the options page in a stand-in for Outlook's Options dialog, with a stand-in add-in.\n\n"
        L"Preparations; with these alone the program ends after them:\n"
        L"  --register, --unregister   the stand-in add-in's class, for the whole machine\n"
        L"  --sample                   replace all settings by sample knowledgebases and settings\n"
        L"  --dump                     print all settings\n"
        L"  --finish-now               the add-in of the running workbench ends its command\n"
        L"  --auto-update              the add-in of the running workbench begins an automatic update\n"
        L"  --version                  print the product's version\n"
        L"  --help                     print this text\n\n"
        L"The page:\n"
        L"  --show-options             open the Options dialog at once\n"
        L"  --ocx FILE                 take the page from this file, not from the registry\n"
        L"  --press ok|cancel|apply    press this button once the page is shown; may be repeated\n"
        L"  --exit-after-options       end the program with the dialog\n"
        L"  --log FILE                 write every call to this file as well\n\n"
        L"The add-in:\n"
        L"  --no-addin                 it does not run\n"
        L"  --work-time MS             how long it works on a command (2000; 0: it ends inside the call)\n"
        L"  --searching, --processing  what it says of itself\n"
        L"  --ends-by-state            it ends by KBProcessState 3, not by its event\n"
        L"  --keeps-list               its event asks to keep the list\n"
        L"  --edit-no-change           it leaves EditNoChange after an edit\n"
        L"  --eml FOLDER               where it writes sent reports (C:\\Quillmark\\Reports)\n"
        L"  --fail OPERATION[=TEXT]    this operation fails and leaves the description TEXT; may be "
        L"repeated:\n";
    for (const wchar_t* operation : OPERATIONS)
        text += std::wstring(L"                             ") + operation + L"\n";
    text +=
        L"\nThe world around them:\n"
        L"  --searching-time MS        how long IsSearching takes\n"
        L"  --base-folder-time MS      how long each question about the base folder takes\n"
        L"  --hung-search-window       the search window handles no messages\n"
        L"  --event-from-thread        ProcessFinished comes from another thread\n"
        L"  --pumps                    every operation lets messages run before it answers\n";
    return text;
}

}  // namespace workbench
