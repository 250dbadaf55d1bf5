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

// ReadData for a buffer whose first `have` bytes are already there: receives the other
// size - have bytes. The failure line counts the bytes already there as read.
int ReadDataInto(int sock, void* buffer, int have, int size);
