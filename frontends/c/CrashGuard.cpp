// SPDX-License-Identifier: MIT
#include "frontends/c/CrashGuard_p.h"

#include <llvm/Support/CrashRecoveryContext.h>
#include <llvm/Support/thread.h>

#include <csignal>
#include <optional>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
#include <pthread.h>
#include <sanitizer/asan_interface.h>
#endif

namespace Kova::Frontends {

namespace {

// A level of parentheses costs Clang's parser about 10 KiB. Memory is taken only as far as the stack grows.
constexpr unsigned stackSize = 1U << 29;
constexpr std::size_t signalStackSize = 1U << 16;

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

/// AddressSanitizer does not clear the marks of frames that a jump leaves on a stack of this size.
void forgetLeftFrames() {
#ifdef __SANITIZE_ADDRESS__
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_attr_getstack(&attributes, &lowest, &size) == 0)
        __asan_unpoison_memory_region(lowest, size);
    pthread_attr_destroy(&attributes);
#endif
}

} // namespace

bool runGuarded(const std::function<void()>& work) {
    const CrashHandlers handlers;
    bool finished = false;
    // What has to be undone lives outside the guarded call, whose frames a crash leaves behind.
    llvm::thread thread(std::optional<unsigned>(stackSize), [&work, &finished] {
        const SignalStack stack;
        llvm::CrashRecoveryContext context;
        context.RunSafely([&work, &finished] {
            try {
                work();
                finished = true;
            } catch (...) {
                // LLVM's frames below this one cannot be unwound; the caller only asks whether the end was reached.
            }
        });
        forgetLeftFrames();
    });
    thread.join();
    return finished;
}

} // namespace Kova::Frontends
