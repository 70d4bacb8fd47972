#include "workbench/addin/knowledgebases.h"

#include <oleauto.h>

#include <algorithm>

#include "interfaces/com.h"
#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"

namespace workbench {
namespace {

constexpr DWORD MOST_KNOWLEDGEBASES = 100'000;
constexpr LONG DOCUMENTS_OF_A_REBUILD = 1200;
constexpr LONG DOCUMENTS_OF_AN_UPDATE = 75;
constexpr LONG BYTES_PER_DOCUMENT = 1234;

std::wstring valueOf(std::size_t index) { return value::Project + std::to_wstring(index); }

/// An index file with some content; the page asks only whether there is any.
void writeIndexFile(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    constexpr char CONTENT[] = "index of the workbench";
    DWORD written = 0;
    WriteFile(file, CONTENT, sizeof CONTENT - 1, &written, nullptr);
    CloseHandle(file);
}

}  // namespace

std::wstring Knowledgebases::keyOf(const std::wstring& name) { return store::profileKey() + L"\\" + name; }

std::wstring Knowledgebases::fileOf(const std::wstring& name) {
    return store::readText(store::profileKey(), value::VexaBaseDir) + L"\\" + name + L".dct";
}

std::vector<std::wstring> Knowledgebases::names() const {
    const std::wstring key = store::profileKey();
    const DWORD count = std::min(store::readNumber(key, value::ProjectCount), MOST_KNOWLEDGEBASES);
    std::vector<std::wstring> names;
    for (DWORD index = 1; index <= count; ++index) names.push_back(store::readText(key, valueOf(index)));
    return names;
}

bool Knowledgebases::contains(const std::wstring& name) const {
    return std::ranges::count(names(), name) > 0;
}

KnowledgebaseState Knowledgebases::state(const std::wstring& name) const {
    const std::wstring key = keyOf(name);
    return {store::readText(key, value::KBLastUpdate, L"-1"),
            static_cast<LONG>(store::readNumber(key, value::KBSize, static_cast<DWORD>(-1))),
            static_cast<LONG>(store::readNumber(key, value::KBDocuments))};
}

void Knowledgebases::setState(const std::wstring& name, const KnowledgebaseState& state) {
    const std::wstring key = keyOf(name);
    store::writeText(key, value::KBLastUpdate, state.lastUpdate);
    store::writeNumber(key, value::KBSize, static_cast<DWORD>(state.size));
    store::writeNumber(key, value::KBDocuments, static_cast<DWORD>(state.documents));
    store::createKey(key + L"\\" + value::Foldersize);
    if (state.documents > 0) writeIndexFile(fileOf(name));
}

void Knowledgebases::write(const std::vector<std::wstring>& names) {
    const std::wstring key = store::profileKey();
    const std::size_t before = this->names().size();
    for (std::size_t i = 0; i < names.size(); ++i) store::writeText(key, valueOf(i + 1), names[i]);
    for (std::size_t i = names.size(); i < before; ++i) store::removeValue(key, valueOf(i + 1));
    store::writeNumber(key, value::ProjectCount, static_cast<DWORD>(names.size()));
}

void Knowledgebases::add(const std::wstring& name) {
    std::vector<std::wstring> list = names();
    list.push_back(name);
    write(list);
    setState(name, {});
    if (list.size() == 1) store::writeText(store::profileKey(), value::Projectname, name);
}

void Knowledgebases::remove(const std::wstring& name) {
    std::vector<std::wstring> list = names();
    std::erase(list, name);
    write(list);
    DeleteFileW(fileOf(name).c_str());
    if (!name.empty()) store::removeKey(keyOf(name));
    const std::wstring profile = store::profileKey();
    if (store::readText(profile, value::Projectname) != name) return;
    if (list.empty())
        store::removeValue(profile, value::Projectname);
    else
        store::writeText(profile, value::Projectname, list.front());
}

void Knowledgebases::rename(const std::wstring& oldName, const std::wstring& newName) {
    std::vector<std::wstring> list = names();
    std::ranges::replace(list, oldName, newName);
    write(list);
    if (!oldName.empty() && !newName.empty()) store::renameKey(keyOf(oldName), keyOf(newName));
    MoveFileW(fileOf(oldName).c_str(), fileOf(newName).c_str());
    const std::wstring profile = store::profileKey();
    if (store::readText(profile, value::Projectname) == oldName)
        store::writeText(profile, value::Projectname, newName);
}

void Knowledgebases::rebuild(const std::wstring& name) {
    setState(name,
             {presentDateSerial(), DOCUMENTS_OF_A_REBUILD * BYTES_PER_DOCUMENT, DOCUMENTS_OF_A_REBUILD});
}

void Knowledgebases::update(const std::wstring& name) {
    const LONG documents = std::max(0L, state(name).documents) + DOCUMENTS_OF_AN_UPDATE;
    setState(name, {presentDateSerial(), documents * BYTES_PER_DOCUMENT, documents});
}

void Knowledgebases::clear() {
    for (const std::wstring& name : names()) remove(name);
    write({});
}

std::wstring serialText(double serial) {
    com::Bstr text;
    VarBstrFromR8(serial, LOCALE_USER_DEFAULT, 0, text.out());
    return com::toText(text.get());
}

std::wstring presentDateSerial() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    double serial = 0;
    SystemTimeToVariantTime(&now, &serial);
    return serialText(serial);
}

}  // namespace workbench
