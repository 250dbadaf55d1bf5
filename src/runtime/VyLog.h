#pragma once
// The diagnostics header: the log helpers with the system's line prefixes, and debug
// channels that are always compiled but print only when named in VY_DEBUG
// (a comma-separated list, or "all").
#include <cstdio>

// "[GUI-FRAMEWORK]: " on standard output. Error lines end with " !!!" in their format.
void vyFrameworkLog(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// "[%s] func: [%s], , line: [%d] " with the tag, on standard error, then flushed.
void vyIpcLog(const char* func, int line, const char* fmt, ...)
    __attribute__((format(printf, 3, 4)));
#define VY_IPC_LOG(...) vyIpcLog(__func__, __LINE__, __VA_ARGS__)

// "[GUI] Func[%s] Line[%d]: " on standard output, as the screens write.
void vyGuiLog(const char* func, int line, const char* fmt, ...)
    __attribute__((format(printf, 3, 4)));
#define VY_GUI_LOG(...) vyGuiLog(__func__, __LINE__, __VA_ARGS__)

// A line in the system's own words, exactly as given (no prefix of ours), on standard
// output: the texts that field tools and test scripts already match character by character.
void vySystemLine(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// "GUI: " start-up progress lines on standard output.
void vyStartupLog(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// Debug channels: off unless VY_DEBUG names them.
bool vyDebugEnabled(const char* channel);
void vyDebugLog(const char* channel, const char* fmt, ...) __attribute__((format(printf, 2, 3)));
#define VY_DEBUG(channel, ...)                                                                     \
    do {                                                                                           \
        if (vyDebugEnabled(channel))                                                               \
            vyDebugLog(channel, __VA_ARGS__);                                                      \
    } while (0)
