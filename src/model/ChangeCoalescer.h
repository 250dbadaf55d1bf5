#pragma once
// Reacts to App's "block changed" notices one at a time. A reaction that reads a block waits
// for App in a nested event loop, where the next notice is handled; reacting there again
// would open one more nested loop per notice, without bound while App sends a storm of them,
// and each inner wait holds up every outer one. Notices that arrive while a reaction runs are
// kept, each block once, and reacted to after it, so the last value is always read.
#include <algorithm>
#include <cstdint>
#include <vector>

class ChangeCoalescer {
public:
    // Calls react(number) now, or after the reaction that is running; a block already
    // waiting is not queued twice. The caller passes only blocks it reacts to, which
    // bounds what waits here by the number of such blocks.
    template <typename React>
    void run(uint32_t number, React react) {
        if (m_running) {
            if (std::find(m_pending.begin(), m_pending.end(), number) == m_pending.end())
                m_pending.push_back(number);
            return;
        }
        m_running = true;
        react(number);
        while (!m_pending.empty()) {
            const uint32_t next = m_pending.front();
            m_pending.erase(m_pending.begin());
            react(next);
        }
        m_running = false;
    }
    bool isRunning() const { return m_running; }
    int waiting() const { return int(m_pending.size()); }

private:
    bool m_running = false;
    std::vector<uint32_t> m_pending;
};
