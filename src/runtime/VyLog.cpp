#include "runtime/VyLog.h"

#include "runtime/VyGlobal.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr const char* kIpcTag = "IPC_UI_QT";

void vprintWithPrefix(FILE* out, const char* prefix, const char* fmt, va_list args) {
    std::fputs(prefix, out);
    std::vfprintf(out, fmt, args);
}

bool channelListed(const char* list, const char* channel) {
    if (!list || !*list)
        return false;
    std::string all(list);
    if (all == "all")
        return true;
    size_t len = std::strlen(channel);
    size_t pos = 0;
    while (pos <= all.size()) {
        size_t comma = all.find(',', pos);
        if (comma == std::string::npos)
            comma = all.size();
        if (comma - pos == len && all.compare(pos, len, channel) == 0)
            return true;
        pos = comma + 1;
    }
    return false;
}

} // namespace

void vyAssertFail(const char* expr, const char* file, int line) {
    std::fprintf(stderr, "ASSERT: \"%s\" in file %s, line %d\n", expr, file, line);
    std::fflush(stderr);
    std::abort();
}

void vyFrameworkLog(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    vprintWithPrefix(stdout, "[GUI-FRAMEWORK]: ", fmt, args);
    va_end(args);
}

void vyIpcLog(const char* func, int line, const char* fmt, ...) {
    // One write per line: stderr is unbuffered, so printing the prefix and the message
    // separately costs two system calls, and the receive and dispatch threads (both log
    // while App floods the GUI) could interleave their halves.
    constexpr size_t kLineBytes = 512; // longer lines take the two-call path below
    char text[kLineBytes];
    va_list args;
    va_start(args, fmt);
    int head =
        std::snprintf(text, sizeof text, "[%s] func: [%s], , line: [%d] ", kIpcTag, func, line);
    int body = -1;
    if (head >= 0 && size_t(head) < sizeof text) {
        va_list copy;
        va_copy(copy, args);
        body = std::vsnprintf(text + head, sizeof text - size_t(head), fmt, copy);
        va_end(copy);
    }
    if (body >= 0 && size_t(head) + size_t(body) < sizeof text) {
        std::fwrite(text, 1, size_t(head) + size_t(body), stderr);
    } else {
        flockfile(stderr);
        std::fprintf(stderr, "[%s] func: [%s], , line: [%d] ", kIpcTag, func, line);
        std::vfprintf(stderr, fmt, args);
        funlockfile(stderr);
    }
    va_end(args);
    std::fflush(stderr);
}

void vyGuiLog(const char* func, int line, const char* fmt, ...) {
    std::printf("[GUI] Func[%s] Line[%d]: ", func, line);
    va_list args;
    va_start(args, fmt);
    std::vprintf(fmt, args);
    va_end(args);
}

void vySystemLine(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    std::vprintf(fmt, args);
    va_end(args);
}

void vyStartupLog(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    vprintWithPrefix(stdout, "GUI: ", fmt, args);
    va_end(args);
}

bool vyDebugEnabled(const char* channel) {
    // Read once: the environment does not change the channels at run time.
    static const char* list = std::getenv("VY_DEBUG");
    return channelListed(list, channel);
}

void vyDebugLog(const char* channel, const char* fmt, ...) {
    std::fprintf(stderr, "[debug:%s] ", channel);
    va_list args;
    va_start(args, fmt);
    std::vfprintf(stderr, fmt, args);
    va_end(args);
    std::fputc('\n', stderr);
}
