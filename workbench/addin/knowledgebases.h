// The knowledgebases as the add-in keeps them: a list of names below the profile's key, a key of its own for
// each, and its index file in the base folder.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace workbench {

/// What the add-in tells of one knowledgebase.
struct KnowledgebaseState {
    std::wstring lastUpdate = L"-1";  ///< a date serial in decimal; "-1" is never
    LONG size = -1;                   ///< bytes of the index; -1 is unknown
    LONG documents = 0;
};

/// Keeps no copy: every call reads and writes the registry, which others may change.
class Knowledgebases {
public:
    [[nodiscard]] std::vector<std::wstring> names() const;
    [[nodiscard]] bool contains(const std::wstring& name) const;
    [[nodiscard]] KnowledgebaseState state(const std::wstring& name) const;

    /// At the end of the list, empty and never updated. The first one becomes the current one.
    void add(const std::wstring& name);
    void remove(const std::wstring& name);
    /// Keeps its place in the list.
    void rename(const std::wstring& oldName, const std::wstring& newName);
    /// Indexes the folders anew: the documents are counted from the start.
    void rebuild(const std::wstring& name);
    /// Adds what has come since.
    void update(const std::wstring& name);
    void setState(const std::wstring& name, const KnowledgebaseState& state);
    /// Forgets every knowledgebase.
    void clear();

private:
    void write(const std::vector<std::wstring>& names);
    [[nodiscard]] static std::wstring keyOf(const std::wstring& name);
    [[nodiscard]] static std::wstring fileOf(const std::wstring& name);
};

/// A date serial as decimal text, by the rules of the user's own locale: the page converts it back by them.
[[nodiscard]] std::wstring serialText(double serial);
/// That of the present local time.
[[nodiscard]] std::wstring presentDateSerial();

}  // namespace workbench
