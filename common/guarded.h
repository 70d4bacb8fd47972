// Where errors stop: a handler whose error goes to the log, and a step whose error is forgotten.
#pragma once

namespace vexa {

class Application;

/// Writes "<name>, Error <procedure>: " and the description of the exception in flight to the log.
void logCurrentError(Application& application, const wchar_t* name, const wchar_t* procedure) noexcept;

/// Runs a handler's body; where it throws, logs the error under `name` and `procedure` and returns false.
/// Nothing leaves it.
template <class Body>
bool guarded(Application& application, const wchar_t* name, const wchar_t* procedure, Body body) noexcept {
    try {
        body();
        return true;
    } catch (...) {
        logCurrentError(application, name, procedure);
        return false;
    }
}

/// Runs one step; an error in it is forgotten and the next step runs ("resume next").
template <class Step>
void attempt(Step step) noexcept {
    try {
        step();
    } catch (...) {
        return;  // the step is skipped, as its caller wants it
    }
}

}  // namespace vexa
