#pragma once
// What a drag carries: a type string that drop targets check ("preview-video-drag") and
// the bytes of its payload.
#include "runtime/VyByteArray.h"
#include "runtime/VyString.h"

class VyMimeData {
public:
    VyMimeData() = default;
    VyMimeData(const VyString& type, const VyByteArray& data)
        : m_type(type)
        , m_data(data) {}

    const VyString& type() const { return m_type; }
    bool hasType(const VyString& type) const { return m_type == type; }
    const VyByteArray& data() const { return m_data; }

private:
    VyString m_type;
    VyByteArray m_data;
};
