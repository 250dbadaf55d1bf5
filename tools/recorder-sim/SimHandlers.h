#pragma once
// The recorder behaviour the simulator executable serves. The start-up handshake and the
// parameter store are registered here as they are written; each one is a SimServer
// handler for its (MainType, SubType), see SimServer.h.
class SimServer;

void registerDefaultHandlers(SimServer& server);
