// An add-in that does what a test tells it and notes every call.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "common/error.h"
#include "common/platform.h"
#include "tests/support/call_log.h"
#include "tests/support/text.h"

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
    void finish(const std::wstring& project, bool keepList) {
        const auto connected = handlers_;  // a handler may connect or disconnect
        for (const auto& [identifier, handler] : connected)
            if (handlers_.contains(identifier)) handler(project, keepList);
    }
    [[nodiscard]] std::size_t connections() const { return handlers_.size(); }

    void SetDefaultKnowledgebase(const std::wstring& name) override {
        operation("SetDefaultKnowledgebase", toUtf8(name));
    }
    void SetLogging(bool on) override { operation("SetLogging", flagText(on)); }
    void NotifyKbAdded(const std::wstring& name) override { operation("NotifyKbAdded", toUtf8(name)); }
    void NotifyKbRemoved(const std::wstring& name) override { operation("NotifyKbRemoved", toUtf8(name)); }
    void NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) override {
        operation("NotifyKbRenamed", toUtf8(oldName) + ", " + toUtf8(newName));
    }
    void NotifyKbRebuild(const std::wstring& name) override { operation("NotifyKbRebuild", toUtf8(name)); }
    void NotifyKbUpdate(const std::wstring& name) override { operation("NotifyKbUpdate", toUtf8(name)); }
    [[nodiscard]] bool IsProcessing() override {
        operation("IsProcessing", "");
        return processing;
    }
    [[nodiscard]] bool IsAutoUpdateRunning() override {
        operation("IsAutoUpdateRunning", "");
        return autoUpdateRunning;
    }
    [[nodiscard]] bool IsSearching() override {
        operation("IsSearching", "");
        return searching;
    }
    void SetFindShortcut(std::int32_t shortcut) override {
        operation("SetFindShortcut", std::to_string(shortcut));
    }
    void SendMail(const vexa::MailReport& newReport) override {
        operation("SendMail", argumentsOf(newReport));
        report = newReport;
    }
    [[nodiscard]] std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override {
        call("addin connect");
        const int identifier = nextHandler_++;
        handlers_.emplace(identifier, std::move(handler));
        return std::make_unique<Connection>(weak_from_this(), identifier);
    }

private:
    /// Forgets its handler when it ends, even after the add-in is gone.
    class Connection : public vexa::EventConnection {
    public:
        Connection(std::weak_ptr<FakeAddIn> addIn, int handler)
            : addIn_(std::move(addIn)), handler_(handler) {}
        ~Connection() override {
            if (const auto addIn = addIn_.lock()) addIn->handlers_.erase(handler_);
        }

    private:
        std::weak_ptr<FakeAddIn> addIn_;
        int handler_;
    };

    static const char* flagText(bool flag) { return flag ? "1" : "0"; }
    static std::string argumentsOf(const vexa::MailReport& report) {
        std::string arguments;
        for (const auto* text : {&report.subject, &report.body, &report.richBody, &report.to, &report.cc})
            arguments += toUtf8(*text) + ", ";
        return arguments + std::to_string(report.importance) + ", " + flagText(report.flag);
    }
    void operation(const char* name, const std::string& arguments) {
        call(std::string("addin ") + name + "(" + arguments + ")");
    }
    void call(const std::string& line) {
        if (calls_.enter(line)) throw vexa::Error(failure);
    }

    CallLog& calls_;
    std::map<int, ProcessFinished> handlers_;
    int nextHandler_ = 0;
};

}  // namespace tests
