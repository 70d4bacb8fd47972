// An add-in that does what a test tells it and notes every call.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "common/platform.h"
#include "tests/support/call_log.h"

namespace tests {

class FakeAddIn : public vexa::AddIn, public std::enable_shared_from_this<FakeAddIn> {
public:
    explicit FakeAddIn(CallLog& calls) : calls_(calls) {}

    // What it answers.
    bool processing = false;
    bool autoUpdateRunning = false;
    bool searching = false;
    /// The description of the errors that it throws where a call shall fail.
    std::wstring failure = L"The add-in failed";
    /// The report of the last SendMail.
    vexa::MailReport report;

    /// Raises ProcessFinished at every handler connected now.
    void finish(const std::wstring& project, bool keepList);
    [[nodiscard]] std::size_t connections() const { return handlers_.size(); }

    void SetDefaultKnowledgebase(const std::wstring& name) override;
    void SetLogging(bool on) override;
    void NotifyKbAdded(const std::wstring& name) override;
    void NotifyKbRemoved(const std::wstring& name) override;
    void NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) override;
    void NotifyKbRebuild(const std::wstring& name) override;
    void NotifyKbUpdate(const std::wstring& name) override;
    [[nodiscard]] bool IsProcessing() override;
    [[nodiscard]] bool IsAutoUpdateRunning() override;
    [[nodiscard]] bool IsSearching() override;
    void SetFindShortcut(std::int32_t shortcut) override;
    void SendMail(const vexa::MailReport& newReport) override;
    [[nodiscard]] std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override;

private:
    class Connection;
    void call(const std::string& line);

    CallLog& calls_;
    std::map<int, ProcessFinished> handlers_;
    int nextHandler_ = 0;
};

}  // namespace tests
