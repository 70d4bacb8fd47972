// What the stand-in add-in does when it is told something: it keeps the knowledgebases, works for a while on
// each command and then says that it has finished. All of it can be set from outside.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "workbench/addin/call_list.h"
#include "workbench/addin/knowledgebases.h"
#include "workbench/addin/mail_folder.h"
#include "workbench/shell/one_shot.h"
#include "workbench/world/world.h"

namespace workbench {

/// How the stand-in shall behave.
struct Behaviour {
    bool away = false;  ///< every call says that it is gone, also on an object found before
    bool searching = false;
    bool processing = false;       ///< says that it processes, beside the commands it works on
    bool finishesByState = false;  ///< writes KBProcessState 3 in place of raising the event
    bool keepsList = false;        ///< says so with the event
    bool editNoChange = false;     ///< leaves the flag of that name after an edit
    unsigned workTime = 2000;      ///< milliseconds for a command; 0 finishes inside the call
    std::wstring mailFolder = L"C:\\Quillmark\\Reports";
    /// Operations that fail, with the description that they leave (none where it is empty).
    std::map<std::wstring, std::wstring> failures;
};

class StandIn {
public:
    explicit StandIn(CallList& calls) : calls_(calls) {}
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    Behaviour behaviour;
    World world;
    /// Raises the event at everyone who is connected.
    std::function<void(const std::wstring& project, bool keepList)> raiseProcessFinished;

    // What the page tells it.
    void added(const std::wstring& name);
    void removed(const std::wstring& name);
    void renamed(const std::wstring& oldName, const std::wstring& newName);
    void rebuild(const std::wstring& name);
    void update(const std::wstring& name);
    /// The user edits the folders of the knowledgebase named in the registry.
    void edit();
    /// False where the mail cannot be written.
    bool send(const Report& report);

    // What it answers.
    [[nodiscard]] bool isSearching() const { return behaviour.searching; }
    [[nodiscard]] bool isProcessing() const { return behaviour.processing || !work_.empty(); }
    [[nodiscard]] bool isAutoUpdateRunning() const { return autoUpdateRunning_; }

    // What a person makes it do.
    /// Updates the knowledgebase that is set for automatic update.
    void runAutoUpdate();
    /// The command in work ends now.
    void finishNow();

private:
    struct Work {
        std::wstring knowledgebase;
        std::function<void()> result;
    };
    void begin(const std::wstring& knowledgebase, std::function<void()> result);
    void workOnNext();
    void finish();
    void sayFinished(const std::wstring& knowledgebase);

    CallList& calls_;
    Knowledgebases knowledgebases_;
    std::deque<Work> work_;
    OneShot workTimer_;
    bool autoUpdateRunning_ = false;
};

}  // namespace workbench
