// Who is told of a property's change, and who may refuse it.
#pragma once

#include <ocidl.h>

#include <vector>

#include "windows/com/connection_point.h"

namespace com {

class Notifier {
public:
    explicit Notifier(ConnectionPoint& sinks) : sinks_(sinks) {}

    /// False where a sink forbids the change.
    [[nodiscard]] bool mayChange(DISPID property) const;
    /// While notifications are frozen they wait, each property once.
    void changed(DISPID property);

    void freeze() { ++frozen_; }
    /// Ends one freeze; with the last, what has waited is told.
    void thaw();

private:
    void tell(DISPID property) const;

    ConnectionPoint& sinks_;
    int frozen_ = 0;
    std::vector<DISPID> waiting_;
};

}  // namespace com
