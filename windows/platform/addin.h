// The running add-in, as the program calls it: a thin shell around the add-in's COM interface.
#pragma once

#include "TarnwellAddIn.h"
#include "common/platform.h"
#include "interfaces/com.h"

namespace win {

/// Calls go straight to the methods by their position in the interface. A failure is thrown as vexa::Error
/// with the description that the add-in left as error information, else with the system's text for the code.
class AddIn : public vexa::AddIn {
public:
    explicit AddIn(com::Ptr<IOlAddIn> object) : object_(std::move(object)) {}

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
    void SendMail(const vexa::MailReport& report) override;
    [[nodiscard]] std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override;

private:
    com::Ptr<IOlAddIn> object_;
};

class AddInLocator : public vexa::AddInLocator {
public:
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() noexcept override;
};

}  // namespace win
