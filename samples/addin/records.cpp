#include "samples/addin/records.h"

#include <windows.h>

namespace sample::records {
namespace {

const HKEY HIVE = HKEY_CURRENT_USER;

std::wstring own(const std::wstring& knowledgebase) { return profile() + L"\\" + knowledgebase; }

std::wstring slot(unsigned long index) { return L"Project" + std::to_wstring(index); }

/// The place of the knowledgebase in the list, from 1; 0 where it has none.
unsigned long find(const std::wstring& knowledgebase) {
    for (unsigned long i = number(profile(), L"ProjectCount"); i > 0; --i)
        if (text(profile(), slot(i)) == knowledgebase) return i;
    return 0;
}

/// Its content lies here; the page looks for the file to know whether the wizard is still wanted.
std::wstring contentFile(const std::wstring& knowledgebase) {
    return text(profile(), L"VexaBaseDir") + L"\\" + knowledgebase + L".dct";
}

}  // namespace

std::wstring profile() {
    const std::wstring current = text(ROOT, L"CurrentProfile");
    return current.empty() ? ROOT : ROOT + (L"\\" + current);
}

std::wstring text(const std::wstring& key, const std::wstring& name) {
    wchar_t found[1000] = L"";
    DWORD size = sizeof found;
    RegGetValueW(HIVE, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, found, &size);
    return found;
}

unsigned long number(const std::wstring& key, const std::wstring& name) {
    DWORD found = 0;
    DWORD size = sizeof found;
    RegGetValueW(HIVE, key.c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &found, &size);
    return found;
}

void put(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    RegSetKeyValueW(HIVE, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void put(const std::wstring& key, const std::wstring& name, unsigned long number) {
    RegSetKeyValueW(HIVE, key.c_str(), name.c_str(), REG_DWORD, &number, sizeof number);
}

void forget(const std::wstring& key, const std::wstring& name) {
    RegDeleteKeyValueW(HIVE, key.c_str(), name.c_str());
}

void add(const std::wstring& knowledgebase) {
    const unsigned long count = number(profile(), L"ProjectCount") + 1;
    put(profile(), slot(count), knowledgebase);
    put(profile(), L"ProjectCount", count);
    if (count == 1) put(profile(), L"Projectname", knowledgebase);
}

void remove(const std::wstring& knowledgebase) {
    const unsigned long place = find(knowledgebase);
    if (place == 0) return;
    const unsigned long count = number(profile(), L"ProjectCount");
    for (unsigned long i = place; i < count; ++i) put(profile(), slot(i), text(profile(), slot(i + 1)));
    forget(profile(), slot(count));
    put(profile(), L"ProjectCount", count - 1);
    RegDeleteTreeW(HIVE, own(knowledgebase).c_str());
    DeleteFileW(contentFile(knowledgebase).c_str());
}

void rename(const std::wstring& oldName, const std::wstring& newName) {
    if (const unsigned long place = find(oldName)) put(profile(), slot(place), newName);
    RegRenameKey(HIVE, own(oldName).c_str(), newName.c_str());
    MoveFileW(contentFile(oldName).c_str(), contentFile(newName).c_str());
    if (text(profile(), L"Projectname") == oldName) put(profile(), L"Projectname", newName);
}

void setContent(const std::wstring& knowledgebase) {
    put(own(knowledgebase), L"KBLastUpdate", std::wstring(L"46348.5"));
    put(own(knowledgebase), L"KBSize", 2'000'000ul);
    put(own(knowledgebase), L"KBDocuments", 120ul);
    const HANDLE file = CreateFileW(contentFile(knowledgebase).c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, "index", 5, &written, nullptr);
    CloseHandle(file);
}

}  // namespace sample::records
