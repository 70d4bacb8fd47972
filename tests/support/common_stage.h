// What the stages of all back ends have in common: the add-in, the log of all calls, scripts for the dialogs
// and answers to the questions.
#pragma once

#include <gtest/gtest.h>

#include <deque>

#include "common/CTimer.h"
#include "tests/stage/stage.h"
#include "tests/support/recording_ports.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/text.h"

namespace tests {

/// Finds the stage's add-in while it runs.
class StageLocator : public vexa::AddInLocator {
public:
    explicit StageLocator(std::shared_ptr<FakeAddIn> addIn) : addIn_(std::move(addIn)) {}
    [[nodiscard]] std::shared_ptr<vexa::AddIn> running() override { return isRunning ? addIn_ : nullptr; }
    bool isRunning = true;

private:
    std::shared_ptr<FakeAddIn> addIn_;
};

/// The program on a machine and its screen, with a record of all that leaves it.
struct RecordedProgram {
    RecordedProgram(CallLog& calls, const vexa::Platform& machine, ui::Screen& realScreen,
                    std::function<bool()> closing)
        : ports(calls, machine),
          screen(calls, realScreen, std::move(closing)),
          application(ports.platform(), screen) {}

    RecordingPorts ports;
    ScriptedScreen screen;
    vexa::Application application;
};

/// A back end derives from it, keeps the program beside the machine that it needs, and calls `begin` and
/// `end`.
class CommonStage : public Stage {
public:
    [[nodiscard]] vexa::Application& application() override { return program_->application; }
    [[nodiscard]] CallLog& calls() override { return calls_; }
    [[nodiscard]] FakeAddIn& addIn() override { return *addIn_; }
    void setAddInRunning(bool running) override { locator_.isRunning = running; }
    void setTwipsPerPixel(double horizontal, double vertical) override {
        program_->screen.setTwipsPerPixel(horizontal, vertical);
    }
    void whenShown(Script script) override { scripts_.push_back(std::move(script)); }
    void answerMessages(std::vector<ui::MessageAnswer> answers) override {
        program_->screen.answerMessages(answers);
    }
    [[nodiscard]] const std::vector<ui::Message>& messages() const override {
        return program_->screen.messages();
    }
    void answerColours(std::vector<std::optional<ui::Colour>> answers) override {
        program_->screen.answerColours(answers);
    }
    [[nodiscard]] const std::vector<ColourQuestion>& colourQuestions() const override {
        return program_->screen.colourQuestions();
    }

protected:
    void begin(RecordedProgram& program) {
        program_ = &program;
        vexa::modTimer::clear();
    }
    /// While the program is still there.
    void end() {
        if (!scripts_.empty()) ADD_FAILURE() << scripts_.size() << " dialogs were never shown";
        if (program_->ports.registry().openKeys() > 0) ADD_FAILURE() << "a registry key was left open";
        vexa::modTimer::clear();
    }
    /// Plays the next script in a dialog that was just shown, which is closed then.
    void play(ui::Form& form) {
        const std::string caption = toUtf8(form.window().caption());
        playNext(form, caption);
        if (!form.window().isOpen()) return;
        ADD_FAILURE() << "\"" << caption << "\" was left open by its script";
        form.window().close();
    }

    CallLog calls_;
    std::shared_ptr<FakeAddIn> addIn_ = std::make_shared<FakeAddIn>(calls_);
    StageLocator locator_{addIn_};

private:
    void playNext(ui::Form& form, const std::string& caption) {
        if (scripts_.empty()) {
            ADD_FAILURE() << "\"" << caption << "\" was shown without a script";
            return;
        }
        const Script script = std::move(scripts_.front());
        scripts_.pop_front();
        try {
            script(form);
        } catch (const std::exception& error) {
            ADD_FAILURE() << "the script of \"" << caption << "\" ended by an exception: " << error.what();
        }
    }

    RecordedProgram* program_ = nullptr;
    std::deque<Script> scripts_;
};

}  // namespace tests
