#include "windows/controls/activation_context.h"

namespace win {
namespace {

constexpr int MANIFEST = 2;  // the number that the system reserves for a library's own manifest

}  // namespace

ActivationContext::ActivationContext(HMODULE module) noexcept {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.hModule = module;
    wanted.lpResourceName = MAKEINTRESOURCEW(MANIFEST);
    context_ = CreateActCtxW(&wanted);
}

ActivationContext::~ActivationContext() {
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

Activation::Activation(const ActivationContext& context) noexcept
    : active_(context.get() != INVALID_HANDLE_VALUE && ActivateActCtx(context.get(), &cookie_)) {}

Activation::~Activation() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace win
