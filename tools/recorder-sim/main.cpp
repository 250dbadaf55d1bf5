// recorder-sim: the recorder service's side of the GUI socket, for running the GUI on a PC.
//     recorder-sim [socket-path]
// The path defaults to $VY_IPC_SOCKET, else "/dev/IPC_UI". Runs until SIGINT or SIGTERM.
#include "SimHandlers.h"
#include "SimServer.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

int main(int argc, char** argv) {
    std::string path = "/dev/IPC_UI";
    if (const char* env = std::getenv("VY_IPC_SOCKET"); env && *env)
        path = env;
    if (argc > 1)
        path = argv[1];

    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    // Blocked before the server thread starts, so only sigwait below sees them.
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    SimServer server;
    registerDefaultHandlers(server);
    // VY_SIM_LISTEN_FD: a socket already listening on the path, handed down by a driver that
    // restarts the simulator under a connected GUI.
    bool listening = false;
    if (const char* fd = std::getenv("VY_SIM_LISTEN_FD"); fd && *fd)
        listening = server.adopt(std::atoi(fd), path);
    else
        listening = server.listen(path);
    if (!listening || !server.start())
        return 1;
    int sig = 0;
    sigwait(&stopSignals, &sig);
    std::printf("sim: signal %d, stopping\n", sig);
    server.stop();
    return 0;
}
