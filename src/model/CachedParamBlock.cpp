#include "model/CachedParamBlock.h"

#include "model/ParamAccess.h"

void CachedParamBlock::load(uint8_t index) {
    ParamAccess::getParam(m_blockNumber, m_bytes.data(), m_size, index);
    m_loaded = true;
    ++m_loadCount;
}
