// The knowledgebases' records in the registry, as docs/integration.md lays them out.
#pragma once

#include <string>

namespace sample::records {

inline constexpr const wchar_t* ROOT = L"Software\\Norvane\\Quillmark";
/// The key that `CurrentProfile` names.
[[nodiscard]] std::wstring profile();

[[nodiscard]] std::wstring text(const std::wstring& key, const std::wstring& name);
[[nodiscard]] unsigned long number(const std::wstring& key, const std::wstring& name);
void put(const std::wstring& key, const std::wstring& name, const std::wstring& text);
void put(const std::wstring& key, const std::wstring& name, unsigned long number);
void forget(const std::wstring& key, const std::wstring& name);

void add(const std::wstring& knowledgebase);
void remove(const std::wstring& knowledgebase);
void rename(const std::wstring& oldName, const std::wstring& newName);
/// It has been indexed: date, size, number of documents, and the file of its content.
void setContent(const std::wstring& knowledgebase);

}  // namespace sample::records
