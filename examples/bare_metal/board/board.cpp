// From reset to main(), and semihosting: a debugger, or QEMU, does what the program asks for.
#include "board.h"

#include <cstdint>
#include <cstdlib>

extern "C" {
extern uint32_t stack_begin[];
extern uint32_t stack_end[];
extern uint32_t data_begin[];
extern uint32_t data_end[];
extern const uint32_t data_source[];
extern uint32_t bss_begin[];
extern uint32_t bss_end[];
extern void (*const init_begin[])();
extern void (*const init_end[])();
[[noreturn]] void reset();
}

int program() asm("main");  // C++ lets nobody call that one by its name

namespace {

constexpr uint32_t kPaint = 0xC5C5C5C5;

// Registers as the debugger wants them: the request, and its argument or the address of more.
uint32_t ask(uint32_t request, const void* argument) {
    register uint32_t r0 asm("r0") = request;
    register const void* r1 asm("r1") = argument;
    asm volatile("bkpt 0xAB" : "+r"(r0) : "r"(r1) : "memory");
    return r0;
}

[[noreturn]] void fault() {
    boardWrite("fault\n");
    boardExit(1);
}

struct Vectors {
    const uint32_t* stack;
    void (*reset)();
    void (*others[14])();
};

[[gnu::section(".vectors"), gnu::used]] const Vectors kVectors = {
    stack_end,
    reset,
    {fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault, fault}};

}  // namespace

void boardWrite(const char* text) {
    ask(0x04, text);
}

void boardExit(int status) {
    constexpr uint32_t kApplicationExit = 0x20026;
    const uint32_t reason[] = {kApplicationExit, static_cast<uint32_t>(status)};
    ask(0x20, reason);
    for (;;) {
    }
}

size_t boardStackPeak() {
    const uint32_t* lowest = stack_begin;
    while (*lowest == kPaint) ++lowest;
    return static_cast<size_t>(stack_end - lowest) * sizeof(uint32_t);
}

void reset() {
    // All of the stack but what this function may have of it.
    const auto* const here = static_cast<uint32_t*>(__builtin_frame_address(0)) - 16;
    for (uint32_t* word = stack_begin; word < here; ++word) *word = kPaint;
    for (uint32_t* word = data_begin; word < data_end; ++word) *word = data_source[word - data_begin];
    for (uint32_t* word = bss_begin; word < bss_end; ++word) *word = 0;
    auto* const coprocessors = reinterpret_cast<volatile uint32_t*>(0xE000ED88);
    *coprocessors = *coprocessors | 0xFU << 20;  // the floating-point unit
    asm volatile("dsb\n\tisb");
    for (const auto* init = init_begin; init < init_end; ++init) (*init)();
    boardExit(program());
}

// The C library's ways to give up. Its own would bring the printing to files.
extern "C" void abort() {
    boardExit(134);
}
extern "C" void __assert_func(const char*, int, const char*, const char*) {
    abort();
}
