// Something to call that its maker keeps alive meanwhile: a test's script costs one function, which of
// std::function would be a dozen for each lambda.
#pragma once

namespace tests {

template <class Signature>
class FunctionRef;

template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
    template <class Function>
    FunctionRef(const Function& function)
        : function_(&function), call_([](const void* called, Arguments... arguments) -> Result {
              return (*static_cast<const Function*>(called))(arguments...);
          }) {}

    Result operator()(Arguments... arguments) const { return call_(function_, arguments...); }

private:
    const void* function_;
    Result (*call_)(const void*, Arguments...);
};

}  // namespace tests
