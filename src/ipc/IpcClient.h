#pragma once
// The GUI's end of the socket to the recorder service ("App").
//
// Two threads run behind it: the receive thread (ClientStar) connects, reads framed
// messages and queues them; the dispatch thread hands each queued message to the dispatch
// callback, which
//   - turns App's remote pointer (1000, 134) into a pointer sample for the application,
//   - feeds a blocking request that is waiting for its reply,
//   - gives a waiter-mode request its reply, or posts the message as a CEvent of type 1000
//     (data: the message block, freed with free) to the event receiver,
//   - before any receiver is set, only notes the start-up stage notifications.
//
// Use from the GUI thread:
//     IpcClient& ipc = IpcClient::instance();
//     ipc.UI_IPC_ClientInit(nullptr);             // start-up: no receiver yet
//     ipc.send(MainType::System, SystemSubType::Hello, hello, sizeof hello); // waits for the
//     socket ipc.waitForStage(1);                        // App's stage notification (1000, 1)
//     IpcMsgBlock info =
//         ipc.blockingRequest(MainType::System, SystemSubType::SystemInfo, nullptr, 0, nullptr, 0);
//     ipc.setEventReceiver(uiManager);            // from now on messages become events
//     ipc.setWaiterMode(true);                    // requests wait in a nested event loop
//     ipc.request(block, MainType::Param, ParamSubType::Access, &getBody, sizeof getBody);
//
// The socket is "/dev/IPC_UI" unless the environment variable VY_IPC_SOCKET names another.
#include "ipc/IpcFrameReader.h"
#include "ipc/IpcMsgBlock.h"
#include "ipc/IpcMsgList.h"
#include "protocol/IpcMsgHeader.h"
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyPostedEvent.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <pthread.h>
#include <string>
#include <utility>
#include <vector>

class VyObject;
class IpcReplyWaiter;

// Called on the dispatch thread with each received block (it takes ownership), and once
// with a null block when the receive thread ends.
using IpcDispatchFn = int (*)(IpcMsgBlock block, void* arg);

struct IpcClientConfig {
    // Empty: $VY_IPC_SOCKET, else "/dev/IPC_UI".
    std::string socketPath;
    // Production threads are detached and live as long as the process. Tests ask for
    // joinable ones so that stop() can end and join them.
    bool joinableThreads = false;
    // Null: the client's own dispatch callback. Tests of the bare transport put a collector
    // here.
    IpcDispatchFn dispatch = nullptr;
    void* dispatchArg = nullptr;
};

class IpcClient {
public:
    static constexpr int kBlockingResendMs = 10000;      // ms between re-sends of a request
    static constexpr int kConnectPollMs = 100;           // ms between checks of the connection
    static constexpr size_t kThreadStackSize = 0x180000; // bytes, both threads

    // The process-wide client.
    static IpcClient& instance();

    IpcClient();
    // Stops and joins joinable threads; detached threads must not outlive a non-static
    // client, so a client started with detached threads is never destroyed (instance()).
    ~IpcClient();
    VY_DISABLE_COPY_MOVE(IpcClient)

    // Starts the receive and dispatch threads and returns at once. `receiver` may be null.
    // False when a thread could not be started, or the client was already started or stopped.
    bool UI_IPC_ClientInit(VyObject* receiver, const IpcClientConfig& config = {});

    // Ends both threads and joins them (joinable clients only). Pending sends, stage waits
    // and blocking requests return; queued messages are freed.
    void stop();

    // One-way message. Waits, polling every 100 ms, until the socket is connected. Returns
    // the sequence number used, whether or not the write succeeded.
    uint32_t send(uint16_t mainType, uint16_t subType, const void* body, uint32_t dataLen);

    // Sends a request and waits for the reply with the same sequence number and types,
    // re-sending every 10 s (setResendIntervalMs) for as long as it takes. With `out` null the
    // reply block is returned; otherwise its body is copied into out (at most outSize bytes)
    // and null is returned. Null also when the client was stopped.
    IpcMsgBlock blockingRequest(uint16_t mainType, uint16_t subType, void* out, size_t outSize,
                                const void* body, uint32_t dataLen);

    // The request every model uses: a blocking request, or in waiter mode a request that
    // keeps the GUI's event loop running until its reply arrives. The reply body is copied
    // into out (at most outSize bytes; shorter replies leave the rest untouched), or becomes
    // the content of `out`. False only when the client was stopped.
    bool request(void* out, size_t outSize, uint16_t mainType, uint16_t subType, const void* body,
                 uint32_t dataLen);
    bool request(std::vector<uint8_t>& out, uint16_t mainType, uint16_t subType, const void* body,
                 uint32_t dataLen);

    // Start-up switches requests to waiter mode once.
    void setWaiterMode(bool on) { m_waiterMode.store(on); }
    bool waiterMode() const { return m_waiterMode.load(); }

    // A non-null receiver gets every message that answers no request, as an event; the
    // stage notifications noted so far are forgotten.
    void setEventReceiver(VyObject* receiver);

    // Waits without limit for App's stage notification (1000, n), which may have arrived
    // before the call. False only when the client was stopped.
    bool waitForStage(int n);

    // Test hook: the re-send interval of blocking requests (10 s in production).
    void setResendIntervalMs(int ms) { m_resendIntervalMs.store(ms); }

    // Sends a ready-made header (seqNumber included) and its body under the send mutex.
    // Waits for the connection like send(). 0 or -1.
    int UI_IPC_ClientSendReqMsg(const IpcMsgHeader* header, const void* body);

    bool isConnected() const { return m_connected.load(); }
    // Stage notifications noted and not yet consumed by a wait.
    int notedStageCount();
    int queuedMessageCount() const { return m_list.count(); }

private:
    friend class IpcReplyWaiter;
    using IpcWaiterMap = std::map<const void*, IpcReplyWaiter*>;

    static void* receiveThreadMain(void* self);
    static void* dispatchThreadMain(void* self);
    static int dispatchThunk(IpcMsgBlock block, void* self);
    bool startThread(pthread_t* thread, void* (*fn)(void*));

    // Receive thread: connect, read, queue; reconnects after a read error and ends after a
    // failed connect.
    void ClientStar(const char* path, IpcDispatchFn callback, void* arg);
    int ConnectSer(const char* path);
    bool waitConnected();

    // The dispatch callback and its parts (IpcClientDispatch.cpp).
    int dispatch(IpcMsgBlock block);
    void remotePointer(const IpcMsgBlock& block);
    // From the dispatch thread the event joins the batch's outbox; from the GUI thread
    // (messages a blocking request held back) it is posted at once.
    void waiterDeliver(IpcMsgBlock block, bool fromDispatchThread = false);
    // After a reconnect: every request waiting in a nested loop went out on the old
    // connection, and its answer with it; each loop is ended without a reply, so the
    // request is sent again on the new one.
    void retryWaiters();
    void postToReceiver(VyObject* receiver, IpcMsgBlock block, bool batched);
    void flushPosts();

    // Requests (IpcClientRequest.cpp).
    IpcMsgBlock waitInNestedLoop(uint16_t mainType, uint16_t subType, const void* body,
                                 uint32_t dataLen);
    static void copyReply(const IpcMsgBlock& reply, void* out, size_t outSize);

    std::string m_path;
    IpcDispatchFn m_callback = nullptr;
    void* m_callbackArg = nullptr;
    bool m_joinable = false;
    bool m_started = false;
    bool m_dispatchStarted = false;
    pthread_t m_receiveThread{};
    pthread_t m_dispatchThread{};

    std::atomic<int> m_sock{-1};
    std::atomic<bool> m_connected{false};
    std::atomic<bool> m_running{false};
    std::atomic<bool> m_stopRequested{false};
    std::atomic<uint32_t> m_seqCounter{0};
    std::atomic<VyObject*> m_receiver{nullptr};
    std::atomic<bool> m_waiterMode{false};
    std::atomic<int> m_resendIntervalMs{kBlockingResendMs};

    // Serialises header-and-body writes and the replacement of m_sock. Innermost lock:
    // taken inside m_waitMutex (re-send) and m_waiterMutex (waiter-mode send).
    std::mutex m_sendMutex;
    // Lets senders and stop() learn that the connected flag or the receive thread changed.
    std::mutex m_stateMutex;
    std::condition_variable m_stateCond;
    bool m_receiveEnded = false; // guarded by m_stateMutex

    IpcFrameReader m_reader;          // receive thread only
    std::vector<IpcMsgBlock> m_batch; // receive thread only: the messages of one read
    IpcMsgList m_list;
    // Dispatch thread only: events for the receiver, posted together at the end of a batch
    // or before anything else leaves the dispatch thread, so that their order holds.
    std::vector<VyPostedEvent> m_outbox;

    // Blocking-wait state, all guarded by m_waitMutex. Lock order: m_waitMutex before
    // m_waiterMutex before m_sendMutex.
    std::mutex m_waitMutex;
    std::condition_variable m_waitCond;
    bool m_blockingActive = false;
    // During a blocking request: the seqNumbers of the messages received. Otherwise: the
    // stage notifications as MainType + SubType.
    std::vector<uint32_t> m_numbers;
    // seqNumber -> block owned by m_held; a flat map, as it holds a handful of entries and
    // keeps its capacity from one request to the next.
    std::vector<std::pair<uint32_t, uint8_t*>> m_replies;
    std::vector<IpcMsgBlock> m_held;
    std::vector<IpcMsgBlock> m_handOver; // m_held's contents while they are delivered

    // Waiters of nested-loop requests, keyed by their loop. Guarded by m_waiterMutex.
    std::mutex m_waiterMutex;
    IpcWaiterMap m_waiters;
};
