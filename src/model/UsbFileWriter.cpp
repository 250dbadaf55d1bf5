#include "model/UsbFileWriter.h"

#include "model/FaceReply.h"
#include "model/RecorderLink.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/UsbFileEntry.h"
#include "runtime/VyLog.h"

#include <cstring>

FaceEditAnswer UsbFileWriter::write(const VyString& name, const std::vector<uint8_t>& bytes) {
    FaceEditAnswer result;
    result.result = FaceEditAnswer::kMalformed;
    RecorderLink* link = RecorderLink::instance();
    UsbWriteRequest head;
    if (link == nullptr || name.isEmpty() || bytes.size() > UsbWriteRequest::kMaxBytes ||
        !FaceLibraryEdit::setText(head.name, sizeof head.name, name.c_str(), size_t(name.size()))) {
        VY_GUI_LOG("USB file \"%s\" of %zu bytes not written\n", name.c_str(), bytes.size());
        return result;
    }
    head.size = uint32_t(bytes.size());
    std::vector<uint8_t> body(sizeof head + bytes.size());
    std::memcpy(body.data(), &head, sizeof head);
    if (!bytes.empty())
        std::memcpy(body.data() + sizeof head, bytes.data(), bytes.size());
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::UsbWrite, body.data(), uint32_t(body.size()),
                  reply);
    if (auto answer = FaceReply::parseEditAnswer(reply.data(), reply.size()))
        result = *answer;
    return result;
}
