#pragma once
// Parameter access over the link to App: fetch a parameter block by number, write one back,
// fetch the system information record, and the (100, 15) pair request.
//
// Every request here waits for App's answer. Once start-up has put the IPC client in waiter
// mode, that wait runs the GUI's event loop (a nested loop) until the reply arrives: timers
// fire, posted events are delivered, windows repaint, and objects whose deleteLater() is
// pending are deleted, all inside the call. A caller must expect that the widget or window
// that asked may be gone when the call returns; hold a VyPointer to it across the call and
// check it afterwards, rather than touching `this` or a raw pointer blindly.
#include <cstdint>
#include <utility>

class ParamAccess {
public:
    // Zero-fills `buffer`, then waits for App's reply; a reply shorter than `size` leaves
    // zeros behind it, a longer one is cut to `size`.
    static void getParam(uint32_t blockNumber, void* buffer, uint32_t size, uint8_t index = 0);
    // One-way. A null record is refused with a log line and nothing is sent.
    static void setParam(uint32_t blockNumber, const void* record, uint32_t size);
    // Request (1000, 33) into SystemInfo::record().
    static void getSystemInfo();
    // Request (100, 15) with a u32 argument; the reply's two u32 words (0 where missing).
    static std::pair<uint32_t, uint32_t> requestPair(uint32_t argument);

    template <typename Block>
    static Block get(uint8_t index = 0) {
        Block block;
        getParam(Block::kBlockNumber, &block, sizeof block, index);
        return block;
    }
    template <typename Block>
    static void set(const Block& block) {
        setParam(Block::kBlockNumber, &block, sizeof block);
    }
};
