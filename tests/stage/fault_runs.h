// One run per outside call in which just that call fails.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/stage/patience.h"
#include "tests/stage/stage.h"

namespace tests {

/// Begins the calls that are to fail one by one.
using Arm = std::function<void()>;

/// Plays `deed` on fresh scenes: first without a fault, then once for each call that it makes after it has
/// called `arm`, with that call failing; `check` sees each scene with the failed call's line.
template <class Scene>
void failEachCallOn(FunctionRef<void(Scene& scene, const Arm& arm)> deed,
                    FunctionRef<void(Scene& scene, const std::string& failed)> check) {
    std::size_t count = 0;
    {
        Scene scene;
        deed(scene, [&] { scene.stage->calls().clear(); });
        count = scene.stage->calls().lines().size();
    }
    ASSERT_GT(count, 0U);
    for (std::size_t index = 0; index < count; ++index) {
        Scene scene;
        CallLog& calls = scene.stage->calls();
        deed(scene, [&] {
            calls.clear();
            calls.failCall(index);
        });
        calls.forgetFaults();
        // In real windows a page that has become slow leaves questions out: the last ones never come.
        if (calls.lines().size() <= index && intervalsToWait() > 1) break;
        ASSERT_GT(calls.lines().size(), index);
        const std::string failed = calls.lines()[index];
        SCOPED_TRACE("failed: " + failed);
        check(scene, failed);
    }
}

}  // namespace tests
