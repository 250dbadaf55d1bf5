#pragma once
// An ordered map with value semantics, on std::map.
#include <map>

#include "runtime/VyMapBase.h"

template <typename K, typename V>
class VyMap : public VyMapBase<std::map<K, V>> {
public:
    bool operator==(const VyMap& o) const { return this->m_map == o.m_map; }
};
