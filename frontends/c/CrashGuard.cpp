// SPDX-License-Identifier: MIT
#include "frontends/c/CrashGuard_p.h"

#include <llvm/Support/CrashRecoveryContext.h>

#include <csignal>
#include <vector>

namespace Kova::Frontends {

namespace {

// A level of parentheses costs Clang's parser about 10 KiB. Memory is taken only as far as the stack grows.
constexpr unsigned stackSize = 1u << 29;
constexpr std::size_t signalStackSize = 1u << 16;

/// Gives the current thread a stack for signal handlers, without which an overflow could not be handled.
class SignalStack {
public:
    SignalStack() : m_memory(signalStackSize) {
        stack_t stack{};
        stack.ss_sp = m_memory.data();
        stack.ss_size = m_memory.size();
        sigaltstack(&stack, &m_before);
    }
    ~SignalStack() { sigaltstack(&m_before, nullptr); }
    SignalStack(const SignalStack&) = delete;
    SignalStack& operator=(const SignalStack&) = delete;

private:
    std::vector<char> m_memory;
    stack_t m_before{};
};

/// LLVM's handlers turn a crash into a return from the guarded call; they are told to run on the signal stack.
class CrashHandlers {
public:
    CrashHandlers() {
        llvm::CrashRecoveryContext::Enable();
        for (const int number : {SIGSEGV, SIGBUS}) {
            struct sigaction action {};
            sigaction(number, nullptr, &action);
            action.sa_flags |= SA_ONSTACK;
            sigaction(number, &action, nullptr);
        }
    }
    ~CrashHandlers() { llvm::CrashRecoveryContext::Disable(); }
    CrashHandlers(const CrashHandlers&) = delete;
    CrashHandlers& operator=(const CrashHandlers&) = delete;
};

} // namespace

bool runGuarded(const std::function<void()>& work) {
    const CrashHandlers handlers;
    llvm::CrashRecoveryContext context;
    bool finished = false;
    const bool survived = context.RunSafelyOnThread(
        [&work, &finished] {
            const SignalStack stack;
            try {
                work();
                finished = true;
            } catch (...) {
                // LLVM's frames below this one cannot be unwound; the caller only asks whether the end was reached.
            }
        },
        stackSize);
    return survived && finished;
}

} // namespace Kova::Frontends
