// Storing a dialog's value in the settings record: a value that differs marks the page changed.
#pragma once

#include "common/application.h"

namespace vexa {

class SettingUpdate {
public:
    explicit SettingUpdate(ChangeFlags& flags) : flags_(flags) {}

    /// Stores `value`; returns whether it differed.
    template <class T>
    bool operator()(T& setting, const T& value) {
        const bool differs = setting != value;
        if (differs) flags_.dialogChanged = true;
        setting = value;
        return differs;
    }

private:
    ChangeFlags& flags_;
};

}  // namespace vexa
