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

    void SetDefaultKnowledgebase(const std::wstring& name) override {
        tell(&IOlAddIn::SetDefaultKnowledgebase, name);
    }
    void SetLogging(bool on) override;
    void NotifyKbAdded(const std::wstring& name) override { tell(&IOlAddIn::NotifyKbAdded, name); }
    void NotifyKbRemoved(const std::wstring& name) override { tell(&IOlAddIn::NotifyKbRemoved, name); }
    void NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) override;
    void NotifyKbRebuild(const std::wstring& name) override { tell(&IOlAddIn::NotifyKbRebuild, name); }
    void NotifyKbUpdate(const std::wstring& name) override { tell(&IOlAddIn::NotifyKbUpdate, name); }
    [[nodiscard]] bool IsProcessing() override { return ask(&IOlAddIn::IsProcessing); }
    [[nodiscard]] bool IsAutoUpdateRunning() override { return ask(&IOlAddIn::IsAutoUpdateRunning); }
    [[nodiscard]] bool IsSearching() override { return ask(&IOlAddIn::IsSearching); }
    void SetFindShortcut(std::int32_t shortcut) override;
    void SendMail(const vexa::MailReport& report) override;
    [[nodiscard]] std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override;

private:
    using NameMethod = HRESULT (STDMETHODCALLTYPE IOlAddIn::*)(BSTR);
    using Question = HRESULT (STDMETHODCALLTYPE IOlAddIn::*)(VARIANT_BOOL*);
    void tell(NameMethod method, const std::wstring& name);
    [[nodiscard]] bool ask(Question question);

    com::Ptr<IOlAddIn> object_;
};

class AddInLocator : public vexa::AddInLocator {
public:
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() noexcept override;
};

}  // namespace win
