// How knowledgebase events reach the add-in and its search window.
#include <array>

#include "common/guarded.h"
#include "page/ctlPPE.h"

namespace vexa {
namespace {

/// The address of a 32-bit zero at the head of a larger zeroed room. The room is never given back: a search
/// window that was given up while it hung may read it at any time later.
std::intptr_t addressOfZero() {
    static auto& room = *new std::array<std::int32_t, 64>();
    room.fill(0);
    return reinterpret_cast<std::intptr_t>(room.data());
}

bool tellSearchWindow(Application& application, std::uint32_t message, std::intptr_t lParam) {
    const std::intptr_t searchWindow = application.readInteger(RootKey, valueName::hWndSearchCtl, 0);
    return application.platform.desktop.sendMessage(searchWindow, message, 0, lParam);
}

bool notifyAddIn(Application& application, AddIn& addIn, const std::wstring& knowledgebase, KBEvent event) {
    switch (event) {
        case KBEvent::added: addIn.NotifyKbAdded(knowledgebase); return true;
        case KBEvent::removed: addIn.NotifyKbRemoved(knowledgebase); return true;
        case KBEvent::renamed:
            addIn.NotifyKbRenamed(
                application.readText(application.ProfileKey, valueName::OldProjectname, L""), knowledgebase);
            return true;
        case KBEvent::rebuild: addIn.NotifyKbRebuild(knowledgebase); return true;
        case KBEvent::update: addIn.NotifyKbUpdate(knowledgebase); return true;
        default: return false;  // the event is recorded, nobody is told
    }
}

bool passOn(Application& application, bool flag, const std::wstring& knowledgebase, KBEvent event) {
    if (event == KBEvent::edited)
        return tellSearchWindow(application, searchMessage::editKnowledgebase, flag ? 1 : 0);
    if (event == KBEvent::wizard)
        return tellSearchWindow(application, searchMessage::startWizard, addressOfZero());
    const std::shared_ptr<AddIn> addIn = application.addIn;
    return addIn && notifyAddIn(application, *addIn, knowledgebase, event);
}

}  // namespace

bool ctlPPE::m_KBForm_KBClick(bool& bProcessing, std::wstring& strName, std::int32_t& nAction) {
    return forwardEvent(bProcessing, strName, nAction);
}

bool ctlPPE::forwardEvent(bool flag, const std::wstring& knowledgebase, std::int32_t action) {
    bool taken = false;
    attempt([&] { application_.SetPointerArrowHourglass(); });
    runLogged(L"m_KBForm_KBClick", [&] {
        application_.writeInteger(application_.ProfileKey, valueName::ProjectEvent, action);
        application_.writeText(application_.ProfileKey, valueName::ProjectEventName, knowledgebase);
        taken = passOn(application_, flag, knowledgebase, static_cast<KBEvent>(action));
    });
    attempt([&] { application_.SetPointerDefault(); });
    return taken;
}

}  // namespace vexa
