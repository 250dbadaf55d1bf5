#include "SimHandlers.h"

#include "SimServer.h"

void registerDefaultHandlers(SimServer& server) {
    // No recorder behaviour yet: messages are logged and left unanswered.
    (void)server;
}
