#include "windows/platform/addin.h"

#include "windows/platform/addin_errors.h"
#include "windows/platform/addin_events.h"

namespace win {
namespace {

constexpr const wchar_t* PROG_ID = L"Tarnwell.OlAddIn.1";

VARIANT_BOOL automationBool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

void AddIn::tell(NameMethod method, const std::wstring& name) {
    const com::Bstr argument(name);
    callAddIn([&] { return (object_.get()->*method)(argument.get()); });
}

bool AddIn::ask(Question question) {
    VARIANT_BOOL answer = VARIANT_FALSE;
    callAddIn([&] { return (object_.get()->*question)(&answer); });
    return answer != VARIANT_FALSE;
}

void AddIn::SetLogging(bool on) {
    callAddIn([&] { return object_->SetLogging(automationBool(on)); });
}

void AddIn::NotifyKbRenamed(const std::wstring& oldName, const std::wstring& newName) {
    const com::Bstr oldArgument(oldName);
    const com::Bstr newArgument(newName);
    callAddIn([&] { return object_->NotifyKbRenamed(oldArgument.get(), newArgument.get()); });
}

void AddIn::SetFindShortcut(std::int32_t shortcut) {
    callAddIn([&] { return object_->SetFindShortcut(shortcut); });
}

void AddIn::SendMail(const vexa::MailReport& report) {
    const com::Bstr subject(report.subject);
    const com::Bstr body(report.body);
    const com::Bstr richBody(report.richBody);
    const com::Bstr to(report.to);
    const com::Bstr cc(report.cc);
    callAddIn([&] {
        return object_->SendMail(subject.get(), body.get(), richBody.get(), to.get(), cc.get(),
                                 report.importance, automationBool(report.flag));
    });
}

std::unique_ptr<vexa::EventConnection> AddIn::connect(ProcessFinished handler) {
    return connectProcessFinished(com::Ptr<IUnknown>(object_.get()), std::move(handler));
}

std::shared_ptr<vexa::AddIn> AddInLocator::running() noexcept {
    try {
        CLSID classId{};
        com::Ptr<IUnknown> object;
        if (FAILED(CLSIDFromProgID(PROG_ID, &classId))) return nullptr;
        if (FAILED(GetActiveObject(classId, nullptr, object.out()))) return nullptr;
        com::Ptr<IOlAddIn> addIn = object.as<IOlAddIn>();
        return addIn ? std::make_shared<AddIn>(std::move(addIn)) : nullptr;
    } catch (...) {
        return nullptr;  // no memory for the proxy
    }
}

}  // namespace win
