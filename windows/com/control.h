// The ActiveX control: one COM object whose interfaces are its parts.
#pragma once

#include "windows/com/automation.h"
#include "windows/com/class_info.h"
#include "windows/com/connection_point.h"
#include "windows/com/container.h"
#include "windows/com/control_events.h"
#include "windows/com/in_place.h"
#include "windows/com/notifier.h"
#include "windows/com/ole_object.h"
#include "windows/com/page_contract.h"
#include "windows/com/page_host.h"
#include "windows/com/persistence.h"
#include "windows/com/stored_properties.h"
#include "windows/com/view.h"
#include "windows/platform/module_reference.h"

namespace com {

class Control : public IUnknown {
public:
    /// A started page with one reference, as `iid`. Throws Failure.
    static void create(REFIID iid, void** out);

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;

private:
    Control() = default;
    virtual ~Control() = default;
    /// Null where the control lacks the interface.
    [[nodiscard]] IUnknown* find(REFIID iid) noexcept;
    void end() noexcept;

    win::ModuleReference module_;
    LONG references_ = 1;
    Container container_;
    ConnectionPoints connectionPoints_{*this};
    Notifier notifier_{connectionPoints_.propertyNotify};
    StoredProperties properties_{notifier_};
    PageHost page_{*this, container_};
    Automation automation_{*this, properties_, page_};
    OutlookPage outlookPage_{*this, page_};
    ClassInfo classInfo_{*this};
    Persistence persistence_{*this, properties_, container_};
    View view_{*this};
    InPlace inPlace_{*this, container_, page_};
    ControlEvents controlEvents_{*this, page_, inPlace_, notifier_};
    OleObject oleObject_{*this, {container_, page_, inPlace_, view_, persistence_}};
};

}  // namespace com
