#pragma once
// The GUI's face models talking to the simulator's face applications in one process: each
// request goes through the same record encoding as on the socket, without the socket.
#include "SimFaces.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"

#include <vector>

class SimFacesLink : public RecorderLink {
public:
    explicit SimFacesLink(SimFaces& faces)
        : m_faces(faces) {}
    uint32_t send(uint16_t, uint16_t, const void*, uint32_t) override { return 1; }
    void request(uint16_t mainType, uint16_t subType, const void* body, uint32_t len,
                 std::vector<uint8_t>& reply) override {
        reply.clear();
        ++requests;
        if (mainType != MainType::Analytics)
            return;
        const auto* p = static_cast<const uint8_t*>(body);
        const std::vector<uint8_t> in(p, p + (p ? len : 0));
        if (!m_faces.answer(subType, in, &reply))
            reply.clear();
    }
    void setWaiterMode(bool) override {}
    void setEventReceiver(VyObject*) override {}

    int requests = 0;

private:
    SimFaces& m_faces;
};
