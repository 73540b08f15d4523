// FloatEnvironmentGuard: the caller's floating-point environment, set aside for one call.
//
// Hosts such as spreadsheets and Delphi or Visual Basic programs often run with the invalid,
// divide-by-zero and overflow traps unmasked. The library's searches and hostile arguments meet
// those conditions as a matter of course and turn them into error codes, so a call runs with
// every exception masked, rounding to nearest and no flush-to-zero (which also makes its
// results independent of the host's modes). On leaving, the caller's control word and its
// sticky exception flags are put back exactly as they were: the library neither traps nor
// leaves flags of its own behind.
#ifndef TAVLIB6_FLOAT_ENVIRONMENT_GUARD_H
#define TAVLIB6_FLOAT_ENVIRONMENT_GUARD_H

#if defined(__x86_64__) || defined(_M_X64)
#include <immintrin.h>
#elif !defined(__i386__)
#include <cfenv>
#endif

namespace tvl {

class FloatEnvironmentGuard {
public:
    FloatEnvironmentGuard() noexcept { enter(); }
    ~FloatEnvironmentGuard() { leave(); }
    FloatEnvironmentGuard(const FloatEnvironmentGuard&) = delete;
    FloatEnvironmentGuard& operator=(const FloatEnvironmentGuard&) = delete;

private:
    // SSE: all six exceptions masked, round to nearest, no flush-to-zero or denormals-are-zero,
    // no flags raised.
    static constexpr unsigned kCallSseControl = 0x1F80;

#if defined(__x86_64__) || defined(_M_X64)
    // All double arithmetic runs in SSE registers; the MXCSR holds both masks and flags.
    void enter() noexcept {
        callerSseControl = _mm_getcsr();
        _mm_setcsr(kCallSseControl);
    }
    void leave() noexcept { _mm_setcsr(callerSseControl); }

    unsigned callerSseControl;
#elif defined(__i386__)
    // 32-bit x86 computes on the x87 stack; its library functions may use SSE too. fnstenv
    // stores the x87 control and status words (the flags among them) and masks every x87
    // exception; fldenv puts both back. The control word for the call: all masked, round to
    // nearest, 64-bit mantissa, which is the compiler runtime's own default.
    struct X87Environment {
        unsigned short control, unused1, status, unused2;
        unsigned rest[5];
    };
    static constexpr unsigned short kCallX87Control = 0x037F;

    void enter() noexcept {
        __asm__ __volatile__("fnstenv %0" : "=m"(callerX87) : : "memory");
        __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(kCallX87Control) : "memory");
        __asm__ __volatile__("stmxcsr %0" : "=m"(callerSseControl) : : "memory");
        __asm__ __volatile__("ldmxcsr %0" : : "m"(kCallSseControl) : "memory");
    }
    void leave() noexcept {
        __asm__ __volatile__("ldmxcsr %0" : : "m"(callerSseControl) : "memory");
        __asm__ __volatile__("fldenv %0" : : "m"(callerX87) : "memory");
    }

    X87Environment callerX87;
    unsigned callerSseControl;
#else
    // Elsewhere the standard environment: feholdexcept saves it, clears the flags and stops
    // trapping.
    void enter() noexcept {
        std::feholdexcept(&callerEnvironment);
        std::fesetround(FE_TONEAREST);
    }
    void leave() noexcept { std::fesetenv(&callerEnvironment); }

    std::fenv_t callerEnvironment;
#endif
};

}  // namespace tvl

#endif
