#pragma once
// Basic types and the one assertion macro of the project.
#include <cstdint>

using vyargb = uint32_t; // 0xAARRGGBB
using vyreal = double;

// Stops the program on a programming error: prints the expression, file and line.
[[noreturn]] void vyAssertFail(const char* expr, const char* file, int line);

#define VY_ASSERT(cond) ((cond) ? static_cast<void>(0) : vyAssertFail(#cond, __FILE__, __LINE__))

// For asserts whose printed text must read as the runtime library's own
// (list indexing prints "i >= 0 && i < p.size()").
#define VY_ASSERT_X(cond, text)                                                                    \
    ((cond) ? static_cast<void>(0) : vyAssertFail(text, __FILE__, __LINE__))

// A class name cannot stand in parentheses in a declaration.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define VY_DISABLE_COPY_MOVE(Class)                                                                \
    Class(const Class&) = delete;                                                                  \
    Class& operator=(const Class&) = delete;                                                       \
    Class(Class&&) = delete;                                                                       \
    Class& operator=(Class&&) = delete;
// NOLINTEND(bugprone-macro-parentheses)
