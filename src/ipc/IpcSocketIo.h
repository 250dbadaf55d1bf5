#pragma once
// Whole-buffer reads and writes on the App socket, with the transport's own log lines.
#include <cstdint>

// Sends all `size` bytes, retrying on EINTR and EAGAIN. A size below 1 sends nothing.
// Returns 0 when every byte went, else -1.
int WriteData(int sock, const void* data, int size);

// Sends a 24-byte header and its body with gathered writes, so that a small message leaves
// in one system call and the peer wakes once. Same retries and result as WriteData; on
// failure *headerSent tells whether the header had gone completely.
int WriteFrame(int sock, const uint8_t* header, const void* body, int bodySize, bool* headerSent);

// Receives exactly `size` bytes, retrying on EINTR. A peer that closes, or any other error,
// ends the read. Returns 0 when complete, else -1. `unused` is accepted for the callers'
// sake and has no effect.
int ReadData(int sock, void* buffer, int size, int unused);

// ReadData that also takes up to `aheadSize` bytes already waiting behind the `size` bytes
// into `ahead`, in the same system call: a busy stream then costs one receive per message
// (this body and the next header). It never waits for the extra bytes. Same retries and
// log lines as ReadData. Returns how many bytes went to `ahead` (0..aheadSize), or -1.
int ReadDataAhead(int sock, void* buffer, int size, void* ahead, int aheadSize);
