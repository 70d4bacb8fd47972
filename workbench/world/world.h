// A world that costs time and answers back: what an add-in and its surroundings can do to the page. A person
// sees it by the menu "World"; the command line sets the same.
#pragma once

#include <functional>
#include <memory>

#include "workbench/world/hung_window.h"

namespace workbench {

/// What can be set.
struct Weather {
    unsigned searchingTime = 0;   ///< milliseconds that IsSearching takes
    unsigned baseFolderTime = 0;  ///< milliseconds for each question about the base folder
    bool hungSearchWindow = false;
    bool eventFromThread = false;  ///< ProcessFinished comes from another thread
    bool pumps = false;            ///< every operation lets messages run before it answers
};

class World {
public:
    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World();

    Weather weather;
    /// Makes what was set come true. To be called on the thread of the search window.
    void apply();

    /// What an operation of the add-in does before it answers.
    void beforeAnswer(bool isSearchingQuestion) const;
    /// Runs `raise` here or, if that is set, on another thread, of which nobody waits for the end.
    void raise(std::function<void()> raise);

private:
    std::unique_ptr<HungWindow> hungWindow_;
};

}  // namespace workbench
