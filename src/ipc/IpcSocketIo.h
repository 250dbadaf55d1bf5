#pragma once
// Whole-buffer reads and writes on the App socket, with the transport's own log lines.

// Sends all `size` bytes, retrying on EINTR and EAGAIN. A size below 1 sends nothing.
// Returns 0 when every byte went, else -1.
int WriteData(int sock, const void* data, int size);

// Receives exactly `size` bytes, retrying on EINTR. A peer that closes, or any other error,
// ends the read. Returns 0 when complete, else -1. `unused` is accepted for the callers'
// sake and has no effect.
int ReadData(int sock, void* buffer, int size, int unused);
