#pragma once
// An unordered map with value semantics, on std::unordered_map.
#include <functional>
#include <unordered_map>

#include "runtime/VyMapBase.h"

template <typename K, typename V, typename H = std::hash<K>>
class VyHash : public VyMapBase<std::unordered_map<K, V, H>> {};
