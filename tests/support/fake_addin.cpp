#include "tests/support/fake_addin.h"

#include "common/error.h"
#include "tests/support/text.h"

namespace tests {
namespace {

std::string operation(const char* name, const std::string& arguments) {
    return std::string("addin ") + name + "(" + arguments + ")";
}

const char* flagText(bool flag) { return flag ? "1" : "0"; }

std::string argumentsOf(const vexa::MailReport& report) {
    std::string arguments;
    for (const auto* text : {&report.subject, &report.body, &report.richBody, &report.to, &report.cc})
        arguments += toUtf8(*text) + ", ";
    return arguments + std::to_string(report.importance) + ", " + flagText(report.flag);
}

}  // namespace

/// Forgets its handler when it ends, even after the add-in is gone.
class FakeAddIn::Connection : public vexa::EventConnection {
public:
    Connection(std::weak_ptr<FakeAddIn> addIn, int handler) : addIn_(std::move(addIn)), handler_(handler) {}
    ~Connection() override {
        if (const auto addIn = addIn_.lock()) addIn->handlers_.erase(handler_);
    }

private:
    std::weak_ptr<FakeAddIn> addIn_;
    int handler_;
};

void FakeAddIn::finish(const std::wstring& project, bool keepList) {
    const auto connected = handlers_;  // a handler may connect or disconnect
    for (const auto& [identifier, handler] : connected)
        if (handlers_.contains(identifier)) handler(project, keepList);
}

void FakeAddIn::call(const std::string& line) {
    if (calls_.enter(line)) throw vexa::Error(failure);
}

void FakeAddIn::SetDefaultKnowledgebase(const std::wstring& name) {
    call(operation("SetDefaultKnowledgebase", toUtf8(name)));
}

void FakeAddIn::SetLogging(bool on) { call(operation("SetLogging", flagText(on))); }

void FakeAddIn::NotifyKbAdded(const std::wstring& name) { call(operation("NotifyKbAdded", toUtf8(name))); }

void FakeAddIn::NotifyKbRemoved(const std::wstring& name) {
    call(operation("NotifyKbRemoved", toUtf8(name)));
}

void FakeAddIn::NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) {
    call(operation("NotifyKbRenamed", toUtf8(oldName) + ", " + toUtf8(newName)));
}

void FakeAddIn::NotifyKbRebuild(const std::wstring& name) {
    call(operation("NotifyKbRebuild", toUtf8(name)));
}

void FakeAddIn::NotifyKbUpdate(const std::wstring& name) { call(operation("NotifyKbUpdate", toUtf8(name))); }

bool FakeAddIn::IsProcessing() {
    call(operation("IsProcessing", ""));
    return processing;
}

bool FakeAddIn::IsAutoUpdateRunning() {
    call(operation("IsAutoUpdateRunning", ""));
    return autoUpdateRunning;
}

bool FakeAddIn::IsSearching() {
    call(operation("IsSearching", ""));
    return searching;
}

void FakeAddIn::SetFindShortcut(std::int32_t shortcut) {
    call(operation("SetFindShortcut", std::to_string(shortcut)));
}

void FakeAddIn::SendMail(const vexa::MailReport& newReport) {
    call(operation("SendMail", argumentsOf(newReport)));
    report = newReport;
}

std::unique_ptr<vexa::EventConnection> FakeAddIn::connect(ProcessFinished handler) {
    call("addin connect");
    const int identifier = nextHandler_++;
    handlers_.emplace(identifier, std::move(handler));
    return std::make_unique<Connection>(weak_from_this(), identifier);
}

}  // namespace tests
