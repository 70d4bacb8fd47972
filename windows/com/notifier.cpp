#include "windows/com/notifier.h"

#include <algorithm>
#include <utility>

namespace com {

bool Notifier::mayChange(DISPID property) const {
    // Each sink is asked, even where one has refused: data binding counts on it.
    bool allowed = true;
    for (const auto& sink : sinks_.sinks<IPropertyNotifySink>())
        if (sink->OnRequestEdit(property) == S_FALSE) allowed = false;
    return allowed;
}

void Notifier::changed(DISPID property) {
    if (frozen_ == 0) return tell(property);
    if (std::ranges::find(waiting_, property) == waiting_.end()) waiting_.push_back(property);
}

void Notifier::thaw() {
    if (frozen_ == 0 || --frozen_ > 0) return;
    for (const DISPID property : std::exchange(waiting_, {})) tell(property);
}

void Notifier::tell(DISPID property) const {
    for (const auto& sink : sinks_.sinks<IPropertyNotifySink>()) sink->OnChanged(property);
}

}  // namespace com
