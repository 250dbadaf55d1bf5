#pragma once
// The server end of the GUI's socket, standing in for the recorder service: accepts the
// GUI, reads its framed messages, runs the handler registered for each (MainType, SubType)
// and writes replies and notifications. Every message in and out is logged on one line:
//     sim <- (600,0) seq=12 len=12
//     sim -> (600,0) seq=12 len=64        a reply
//     sim -> (1000,116) value=1 len=0     a notification
//
// Adding behaviour: register a handler for the pair it serves, before or after start().
//     server.addHandler(600, 0, [](SimServer& s, const SimMessage& m) {
//         if (m.body.size() < 12)
//             return false;                 // logged as a refused malformed request
//         s.reply(m, record, sizeof record);  // same types and seqNumber as the request
//         return true;
//     });
// Handlers run on the server thread, one message at a time, in arrival order; they may
// call reply() and notify(). notify() may also be called from any other thread.
#include "SimMessage.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

class SimServer {
public:
    // False refuses the message as malformed; the server logs it and keeps serving.
    using Handler = std::function<bool(SimServer&, const SimMessage&)>;

    SimServer() = default;
    ~SimServer();
    SimServer(const SimServer&) = delete;
    SimServer& operator=(const SimServer&) = delete;

    // Binds and listens on `path` (a stale socket file there is removed first).
    bool listen(const std::string& path);
    // Serves on a socket that is already listening (handed down by whoever started the
    // simulator), so that a GUI can connect while one simulator ends and the next starts;
    // the socket is left as it is on stop().
    bool adopt(int listenFd, const std::string& path);
    // Serves on a thread of its own until stop(): one GUI connection at a time; when it
    // ends, the next one is accepted.
    bool start();
    void stop();

    void addHandler(uint16_t mainType, uint16_t subType, Handler handler);

    // Writes the reply to `request`: its MainType, SubType and seqNumber, this body.
    bool reply(const SimMessage& request, const void* body, uint32_t len);
    // Writes a one-way message with msgValue as its small argument.
    bool notify(uint16_t mainType, uint16_t subType, uint32_t value, const void* body = nullptr,
                uint32_t len = 0);

    // Closes the GUI's connection, as App does when it restarts; the next one is accepted.
    void dropClient();
    // Writes bytes as they are, framed or not: how a test sends the GUI a broken frame.
    bool writeRaw(const void* data, size_t size);

    // Blocks until a GUI is connected (true) or the server stops (false).
    bool waitForClient();
    bool hasClient() const;
    // Messages received so far, refused ones included.
    uint64_t receivedCount() const { return m_received.load(); }

    // The per-message log lines; a benchmark turns them off.
    void setLogging(bool on) { m_logging.store(on); }

private:
    void serve();
    void serveClient(int fd);
    bool writeMessage(const IpcMsgHeader& h, const void* body, bool isReply);
    void setClient(int fd);

    std::string m_path;
    int m_listenFd = -1;
    bool m_adopted = false;
    std::thread m_thread;
    std::atomic<bool> m_stopping{false};
    std::atomic<bool> m_logging{true};
    std::atomic<uint64_t> m_received{0};

    std::mutex m_handlerMutex; // guards m_handlers
    std::map<std::pair<uint16_t, uint16_t>, Handler> m_handlers;

    // Guards m_clientFd and serialises writes to it, so a notification from another thread
    // never interleaves with a reply.
    mutable std::mutex m_clientMutex;
    std::condition_variable m_clientCond;
    int m_clientFd = -1;
};
