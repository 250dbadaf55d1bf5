#pragma once
// Raw bytes with value semantics: a copy never aliases the original. Used for message
// bodies, packed bit sets and file contents; no text encoding is implied.
#include <string>

class VyByteArray {
public:
    VyByteArray() = default;
    // Copies size bytes from data (up to the terminating zero when size is negative).
    VyByteArray(const char* data, int size = -1);
    VyByteArray(int size, char fill);

    char* data() { return &m_bytes[0]; }
    const char* data() const { return m_bytes.data(); }
    const char* constData() const { return m_bytes.data(); }
    int size() const { return static_cast<int>(m_bytes.size()); }
    int length() const { return size(); }
    bool isEmpty() const { return m_bytes.empty(); }
    void clear() { m_bytes.clear(); }

    // New bytes are zero; a negative size empties the array.
    void resize(int size);
    // Sets every byte to c; with size >= 0 the array is resized first.
    VyByteArray& fill(char c, int size = -1);

    VyByteArray& append(const VyByteArray& other);
    VyByteArray& append(const char* data, int size = -1);
    VyByteArray& append(char c);

    char at(int i) const;
    char& operator[](int i);
    char operator[](int i) const { return at(i); }

    // Slices clamp to the array: a position past the end gives an empty array, a negative
    // or too large length takes everything to the end.
    VyByteArray mid(int position, int length = -1) const;
    VyByteArray left(int length) const;
    VyByteArray right(int length) const;

    bool startsWith(const VyByteArray& prefix) const;
    int indexOf(char c, int from = 0) const;

    // Lower-case hexadecimal, two digits per byte; handy in log lines.
    std::string toHex() const;

    bool operator==(const VyByteArray& o) const { return m_bytes == o.m_bytes; }
    bool operator!=(const VyByteArray& o) const { return m_bytes != o.m_bytes; }

private:
    std::string m_bytes;
};
