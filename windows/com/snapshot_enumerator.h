// Enumerators over a snapshot: what changes after they were made does not disturb them.
#pragma once

#include <ocidl.h>

#include <algorithm>
#include <vector>

#include "interfaces/com.h"
#include "windows/com/boundary.h"
#include "windows/platform/module_reference.h"

namespace com {

// How the items of an enumerator are handed out: the receiver owns a reference.
inline CONNECTDATA share(const CONNECTDATA& item) {
    item.pUnk->AddRef();
    return item;
}
inline IConnectionPoint* share(IConnectionPoint* item) {
    item->AddRef();
    return item;
}
inline void giveUp(const CONNECTDATA& item) { item.pUnk->Release(); }
inline void giveUp(IConnectionPoint* item) { item->Release(); }

template <class Interface, class Item>
class SnapshotEnumerator : public Counted<Interface> {
public:
    /// Shares each item. Throws std::bad_alloc.
    explicit SnapshotEnumerator(const std::vector<Item>& items) {
        items_.reserve(items.size());
        for (const Item& item : items) items_.push_back(share(item));
    }

    STDMETHODIMP Next(ULONG wanted, Item* out, ULONG* fetched) noexcept override {
        if (fetched != nullptr) *fetched = 0;
        if (out == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
        const ULONG count = std::min(wanted, left());
        for (ULONG i = 0; i < count; ++i) out[i] = share(items_[next_++]);
        if (fetched != nullptr) *fetched = count;
        return count == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG wanted) noexcept override {
        const ULONG count = std::min(wanted, left());
        next_ += count;
        return count == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** out) noexcept override {
        return atBoundary([&] {
            Interface*& place = required(out);
            place = nullptr;
            auto* copy = new SnapshotEnumerator(items_);
            copy->next_ = next_;
            place = copy;
            return S_OK;
        });
    }

private:
    ~SnapshotEnumerator() override {
        for (const Item& item : items_) giveUp(item);
    }
    [[nodiscard]] ULONG left() const { return static_cast<ULONG>(items_.size()) - next_; }

    win::ModuleReference module_;
    std::vector<Item> items_;
    ULONG next_ = 0;
};

}  // namespace com
