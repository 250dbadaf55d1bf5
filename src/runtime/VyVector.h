#pragma once
// A contiguous array with value semantics; the same contract as VyList, plus data()
// and resize() for byte and pixel buffers.
#include "runtime/VyList.h"

template <typename T>
class VyVector : public VyList<T> {
public:
    using VyList<T>::VyList;
    explicit VyVector(int n, const T& v = T())
        : VyList<T>(std::vector<T>(static_cast<size_t>(n), v)) {}

    T* data() { return this->storage().data(); }
    const T* data() const { return this->toStdVector().data(); }
    void resize(int n) { this->storage().resize(static_cast<size_t>(n)); }
};
