// A screen on which nobody sits: message boxes and colour choosers are answered by a script and recorded.
// Dialogs, fonts and the resolution are those of the screen that it wraps.
#pragma once

#include <deque>

#include "common/error.h"
#include "tests/stage/stage.h"
#include "tests/support/call_log.h"
#include "tests/support/text.h"
#include "ui/window.h"

namespace tests {

class ScriptedScreen : public ui::Screen {
public:
    /// While `closing` answers true, questions are answered without being asked, as on a real screen.
    ScriptedScreen(CallLog& calls, ui::Screen& screen, std::function<bool()> closing)
        : calls_(calls), screen_(screen), closing_(std::move(closing)) {}

    void answerMessages(const std::vector<ui::MessageAnswer>& answers) {
        messageAnswers_.assign(answers.begin(), answers.end());
    }
    void answerColours(const std::vector<std::optional<ui::Colour>>& answers) {
        colourAnswers_.assign(answers.begin(), answers.end());
    }
    [[nodiscard]] const std::vector<ui::Message>& messages() const { return messages_; }
    [[nodiscard]] const std::vector<Stage::ColourQuestion>& colourQuestions() const { return questions_; }

    [[nodiscard]] std::unique_ptr<ui::Window> createDialog(int templateIdentifier,
                                                           ui::Window* owner) override {
        return screen_.createDialog(templateIdentifier, owner);
    }
    /// A box that shall fail is not shown; its answer is OK or No.
    ui::MessageAnswer showMessage(ui::Window*, const ui::Message& message) override {
        const ui::MessageAnswer plain =
            message.buttons == ui::MessageButtons::ok ? ui::MessageAnswer::ok : ui::MessageAnswer::no;
        if (closing_() || calls_.enter("screen message " + toUtf8(message.text))) return plain;
        messages_.push_back(message);
        return next(messageAnswers_, plain);
    }
    /// A chooser that shall fail throws Error.
    std::optional<ui::Colour> chooseColour(ui::Window&, ui::Colour initial,
                                           const std::wstring& title) override {
        if (closing_()) return {};
        if (calls_.enter("screen colour " + std::to_string(initial) + " " + toUtf8(title)))
            throw vexa::Error(L"The colour chooser failed");
        questions_.push_back({initial, title});
        return next(colourAnswers_, std::optional<ui::Colour>());
    }
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
    /// Takes the first element off the queue; `otherwise` where it is empty.
    template <class T>
    static T next(std::deque<T>& queue, T otherwise) {
        if (queue.empty()) return otherwise;
        T first = queue.front();
        queue.pop_front();
        return first;
    }

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
