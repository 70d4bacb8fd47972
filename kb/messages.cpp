#include "kb/messages.h"

#include "common/product_names.h"

namespace vexa::message {
namespace {

ui::Message warning(const std::wstring& text) {
    return {text, PRODUCT_TITLE, ui::MessageIcon::exclamation, ui::MessageButtons::ok};
}

ui::Message question(const std::wstring& text, ui::MessageAnswer defaultAnswer) {
    return {text, PRODUCT_TITLE, ui::MessageIcon::question, ui::MessageButtons::yesNo, defaultAnswer};
}

}  // namespace

ui::Message autoUpdateRuns() {
    return warning(
        L"An auto-update is currently running.\r\nPlease wait until it is complete and try again.");
}

ui::Message nameMissing() { return warning(L"Please enter a name."); }

ui::Message nameForbidden() {
    return warning(
        L"The name may not contain the following characters:\r\n"
        L"                 \\ / : * ? \" < > |");
}

ui::Message nameExists(const std::wstring& name) {
    return warning(L"The knowledgebase '" + name + L"' already exists.");
}

ui::Message removeKnowledgebase(const std::wstring& name, bool isAutoUpdate) {
    std::wstring text = L"Are you sure you want to remove the knowledgebase '" + name + L"'?";
    if (isAutoUpdate) text = L"You specified '" + name + L"' as the auto-update knowledgebase.\r\r" + text;
    return question(text, ui::MessageAnswer::no);
}

ui::Message configureAutoUpdate(const std::wstring& name) {
    return question(L"Would you like '" + name + L"' to be configured for auto-update?",
                    ui::MessageAnswer::yes);
}

std::wstring commandRuns(KBEvent event, const std::wstring& name) {
    const auto is = [&](const wchar_t* doing) {
        return std::wstring(L"The add-in is ") + doing + L" '" + name + L"'...";
    };
    switch (event) {
        case KBEvent::removed: return is(L"removing");
        case KBEvent::edited: return is(L"editing");
        case KBEvent::rebuild: return is(L"rebuilding");
        case KBEvent::update: return is(L"updating");
        default: return somethingRuns();
    }
}

std::wstring somethingRuns() { return L"The add-in is working on the knowledgebases..."; }

std::wstring fillRuns(std::int32_t rows, std::int32_t count) {
    return L"Reading the knowledgebases: " + std::to_wstring(rows) + L" of " + std::to_wstring(count) +
           L"...";
}

std::wstring addInIsMissing() {
    return L"The add-in is not running: the list can be looked at and not changed.";
}

ui::Message driveNotAvailable(const std::wstring& drive) {
    return {L"Drive '" + drive + L"' is not available.", L"Orbisearch", ui::MessageIcon::information,
            ui::MessageButtons::ok};
}

ui::Message folderNotOpened(const std::wstring& why) {
    return warning(L"The folder cannot be opened.\r\n" + why);
}

ui::Message folderNotCreated(const std::wstring& name, const std::wstring& why) {
    return warning(L"The folder '" + name + L"' cannot be created.\r\n" + why);
}

}  // namespace vexa::message
