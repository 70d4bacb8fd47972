#include "tests/support/scripted_screen.h"

#include "common/error.h"
#include "tests/support/text.h"

namespace tests {
namespace {

/// Takes the first element off the queue; `otherwise` where it is empty.
template <class T>
T next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T first = queue.front();
    queue.pop_front();
    return first;
}

ui::MessageAnswer plainAnswer(ui::MessageButtons buttons) {
    return buttons == ui::MessageButtons::ok ? ui::MessageAnswer::ok : ui::MessageAnswer::no;
}

}  // namespace

void ScriptedScreen::answerMessages(const std::vector<ui::MessageAnswer>& answers) {
    messageAnswers_.assign(answers.begin(), answers.end());
}

void ScriptedScreen::answerColours(const std::vector<std::optional<ui::Colour>>& answers) {
    colourAnswers_.assign(answers.begin(), answers.end());
}

ui::MessageAnswer ScriptedScreen::showMessage(ui::Window*, const ui::Message& message) {
    const ui::MessageAnswer plain = plainAnswer(message.buttons);
    if (closing_()) return plain;
    if (calls_.enter("screen message " + toUtf8(message.text))) return plain;
    messages_.push_back(message);
    return next(messageAnswers_, plain);
}

std::optional<ui::Colour> ScriptedScreen::chooseColour(ui::Window&, ui::Colour initial,
                                                       const std::wstring& title) {
    if (closing_()) return {};
    if (calls_.enter("screen colour " + std::to_string(initial) + " " + toUtf8(title)))
        throw vexa::Error(L"The colour chooser failed");
    questions_.push_back({initial, title});
    return next(colourAnswers_, std::optional<ui::Colour>());
}

}  // namespace tests
