#include "runtime/VyByteArray.h"

#include "runtime/VyGlobal.h"

#include <cstring>

VyByteArray::VyByteArray(const char* data, int size) {
    if (!data)
        return;
    if (size < 0)
        m_bytes.assign(data);
    else
        m_bytes.assign(data, static_cast<size_t>(size));
}

VyByteArray::VyByteArray(int size, char fill) {
    if (size > 0)
        m_bytes.assign(static_cast<size_t>(size), fill);
}

void VyByteArray::resize(int size) {
    m_bytes.resize(size > 0 ? static_cast<size_t>(size) : 0);
}

VyByteArray& VyByteArray::fill(char c, int size) {
    if (size >= 0)
        resize(size);
    m_bytes.assign(m_bytes.size(), c);
    return *this;
}

VyByteArray& VyByteArray::append(const VyByteArray& other) {
    m_bytes += other.m_bytes;
    return *this;
}

VyByteArray& VyByteArray::append(const char* data, int size) {
    if (!data)
        return *this;
    if (size < 0)
        m_bytes.append(data);
    else
        m_bytes.append(data, static_cast<size_t>(size));
    return *this;
}

VyByteArray& VyByteArray::append(char c) {
    m_bytes += c;
    return *this;
}

char VyByteArray::at(int i) const {
    VY_ASSERT_X(i >= 0 && i < size(), "i >= 0 && i < size()");
    return m_bytes[static_cast<size_t>(i)];
}

char& VyByteArray::operator[](int i) {
    VY_ASSERT_X(i >= 0 && i < size(), "i >= 0 && i < size()");
    return m_bytes[static_cast<size_t>(i)];
}

VyByteArray VyByteArray::mid(int position, int length) const {
    if (position < 0)
        position = 0;
    if (position >= size())
        return VyByteArray();
    const int available = size() - position;
    if (length < 0 || length > available)
        length = available;
    return VyByteArray(m_bytes.data() + position, length);
}

VyByteArray VyByteArray::left(int length) const {
    return mid(0, length);
}

VyByteArray VyByteArray::right(int length) const {
    if (length < 0 || length >= size())
        return *this;
    return mid(size() - length, length);
}

bool VyByteArray::startsWith(const VyByteArray& prefix) const {
    return m_bytes.compare(0, prefix.m_bytes.size(), prefix.m_bytes) == 0;
}

int VyByteArray::indexOf(char c, int from) const {
    if (from < 0)
        from = 0;
    const size_t hit = m_bytes.find(c, static_cast<size_t>(from));
    return hit == std::string::npos ? -1 : static_cast<int>(hit);
}

std::string VyByteArray::toHex() const {
    static const char kDigits[] = "0123456789abcdef";
    std::string out;
    out.reserve(m_bytes.size() * 2);
    for (char c : m_bytes) {
        const auto b = static_cast<unsigned char>(c);
        out += kDigits[b >> 4];
        out += kDigits[b & 0x0F];
    }
    return out;
}
