// Somebody at the page, who waits for each window and then presses something in it, all through the message
// loop that runs: that of the test, of a dialog, or of a message box.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>

#include "tests/windows/stage/ticker.h"

namespace tests {

class Person {
public:
    /// Once `ready` holds, `act` is done, then it is the next step's turn.
    void plan(const std::string& what, std::function<bool()> ready, std::function<void()> act);
    /// Lets messages run until every step is done. A step that takes too long fails the test and ends the
    /// rest.
    void doAll();

    // What most steps are made of.
    void press(const std::wstring& window, int identifier);
    void answer(const std::wstring& window, int button);
    void name(const std::wstring& window, int list, const std::wstring& text);
    void waitEnabled(const std::wstring& window, int identifier);
    void waitGone(const std::wstring& window);

    /// The visible window of this thread with this title; null where there is none.
    [[nodiscard]] static HWND find(const std::wstring& title);

private:
    struct Step {
        std::string what;
        std::function<bool()> ready;
        std::function<void()> act;
    };
    void next();
    void giveUpInTime();
    static void closeFrontWindow();

    std::deque<Step> steps_;
    bool acting_ = false;
    bool gaveUp_ = false;
    ULONGLONG since_ = 0;  ///< when the last step was done
    const Ticker ticker_{20, [this] { next(); }};
};

}  // namespace tests
