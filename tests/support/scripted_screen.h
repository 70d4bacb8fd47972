// A screen on which nobody sits: message boxes and colour choosers are answered by a script and recorded.
// Dialogs, fonts and the resolution are those of the screen that it wraps.
#pragma once

#include <deque>

#include "tests/stage/stage.h"
#include "tests/support/call_log.h"
#include "ui/window.h"

namespace tests {

class ScriptedScreen : public ui::Screen {
public:
    /// While `closing` answers true, questions are answered without being asked, as on a real screen.
    ScriptedScreen(CallLog& calls, ui::Screen& screen, std::function<bool()> closing)
        : calls_(calls), screen_(screen), closing_(std::move(closing)) {}

    void answerMessages(const std::vector<ui::MessageAnswer>& answers);
    void answerColours(const std::vector<std::optional<ui::Colour>>& answers);
    [[nodiscard]] const std::vector<ui::Message>& messages() const { return messages_; }
    [[nodiscard]] const std::vector<Stage::ColourQuestion>& colourQuestions() const { return questions_; }

    [[nodiscard]] std::unique_ptr<ui::Window> createDialog(int templateIdentifier,
                                                           ui::Window* owner) override {
        return screen_.createDialog(templateIdentifier, owner);
    }
    /// A box that shall fail is not shown; its answer is OK or No.
    ui::MessageAnswer showMessage(ui::Window* owner, const ui::Message& message) override;
    /// A chooser that shall fail throws Error.
    std::optional<ui::Colour> chooseColour(ui::Window& owner, ui::Colour initial,
                                           const std::wstring& title) override;
    [[nodiscard]] double twipsPerPixelX() const override {
        return twipsPerPixelX_.value_or(screen_.twipsPerPixelX());
    }
    [[nodiscard]] double twipsPerPixelY() const override {
        return twipsPerPixelY_.value_or(screen_.twipsPerPixelY());
    }
    void setTwipsPerPixel(double horizontal, double vertical) {
        twipsPerPixelX_ = horizontal;
        twipsPerPixelY_ = vertical;
    }
    [[nodiscard]] int scrollThumbWidth() const override { return screen_.scrollThumbWidth(); }
    [[nodiscard]] std::vector<std::wstring> fonts() const override { return screen_.fonts(); }

private:
    CallLog& calls_;
    ui::Screen& screen_;
    std::function<bool()> closing_;
    std::optional<double> twipsPerPixelX_;
    std::optional<double> twipsPerPixelY_;
    std::deque<ui::MessageAnswer> messageAnswers_;
    std::deque<std::optional<ui::Colour>> colourAnswers_;
    std::vector<ui::Message> messages_;
    std::vector<Stage::ColourQuestion> questions_;
};

}  // namespace tests
