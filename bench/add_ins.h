// The add-ins of benchmarks: none, or one that answers at once, so that only the product's own work counts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "common/platform.h"

namespace bench {

class Locator : public vexa::AddInLocator {
public:
    /// Finds this one, or none.
    explicit Locator(std::shared_ptr<vexa::AddIn> addIn = nullptr) : addIn_(std::move(addIn)) {}
    std::shared_ptr<vexa::AddIn> running() override { return addIn_; }

private:
    std::shared_ptr<vexa::AddIn> addIn_;
};

class IdleAddIn : public vexa::AddIn {
public:
    /// Raises the add-in's event.
    ProcessFinished finished;

    void SetDefaultKnowledgebase(const std::wstring&) override {}
    void SetLogging(bool) override {}
    void NotifyKbAdded(const std::wstring&) override {}
    void NotifyKbRemoved(const std::wstring&) override {}
    void NotifyKbRenamed(const std::wstring&, const std::wstring&) override {}
    void NotifyKbRebuild(const std::wstring&) override {}
    void NotifyKbUpdate(const std::wstring&) override {}
    bool IsProcessing() override { return false; }
    bool IsAutoUpdateRunning() override { return false; }
    bool IsSearching() override { return false; }
    void SetFindShortcut(std::int32_t) override {}
    void SendMail(const vexa::MailReport&) override {}
    std::unique_ptr<vexa::EventConnection> connect(ProcessFinished handler) override {
        finished = std::move(handler);
        return nullptr;
    }
};

}  // namespace bench
