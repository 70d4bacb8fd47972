#include "workbench/addin/stand_in.h"

#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"

namespace workbench {

void StandIn::added(const std::wstring& name) {
    // At once, and without an event: the page goes on to edit the new knowledgebase.
    knowledgebases_.add(name);
}

void StandIn::removed(const std::wstring& name) {
    begin(name, [this, name] { knowledgebases_.remove(name); });
}

void StandIn::renamed(const std::wstring& oldName, const std::wstring& newName) {
    // At once: the page does not wait for the end of a rename.
    knowledgebases_.rename(oldName, newName);
}

void StandIn::rebuild(const std::wstring& name) {
    begin(name, [this, name] { knowledgebases_.rebuild(name); });
}

void StandIn::update(const std::wstring& name) {
    begin(name, [this, name] { knowledgebases_.update(name); });
}

void StandIn::edit() {
    const std::wstring name = store::readText(store::profileKey(), value::ProjectEventName);
    begin(name, [this, name] {
        store::writeNumber(store::profileKey(), value::EditNoChange, behaviour.editNoChange ? 1 : 0);
        if (!behaviour.editNoChange && knowledgebases_.contains(name)) knowledgebases_.rebuild(name);
    });
}

bool StandIn::send(const Report& report) { return !writeMail(behaviour.mailFolder, report).empty(); }

void StandIn::runAutoUpdate() {
    const std::wstring name = store::readText(store::profileKey(), value::DefaultProject);
    autoUpdateRunning_ = true;
    begin(name, [this, name] {
        autoUpdateRunning_ = false;
        if (knowledgebases_.contains(name)) knowledgebases_.update(name);
    });
}

void StandIn::finishNow() {
    if (!work_.empty()) finish();
}

void StandIn::begin(const std::wstring& knowledgebase, std::function<void()> result) {
    work_.push_back({knowledgebase, std::move(result)});
    if (work_.size() == 1) workOnNext();
}

void StandIn::workOnNext() {
    if (behaviour.workTime == 0)
        finish();
    else
        workTimer_.start(behaviour.workTime, [this] { finish(); });
}

void StandIn::finish() {
    workTimer_.stop();
    const Work done = std::move(work_.front());
    work_.pop_front();
    done.result();
    sayFinished(done.knowledgebase);
    if (!work_.empty()) workOnNext();
}

void StandIn::sayFinished(const std::wstring& knowledgebase) {
    if (behaviour.finishesByState) {
        store::writeNumber(store::profileKey(), value::KBProcessState, PROCESSING_ENDED);
        calls_.note(side::addInToPage, L"KBProcessState", L"3");
        return;
    }
    calls_.note(side::addInToPage, L"ProcessFinished",
                L"\"" + knowledgebase + L"\", " + (behaviour.keepsList ? L"true" : L"false"));
    if (raiseProcessFinished) raiseProcessFinished(knowledgebase, behaviour.keepsList);
}

}  // namespace workbench
