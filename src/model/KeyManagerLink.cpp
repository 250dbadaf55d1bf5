#include "model/KeyManagerLink.h"

#include "model/ParamAccess.h"
#include "model/RecorderLink.h"
#include "model/SystemInfo.h"
#include "model/UserAccess.h"
#include "platform/keys/VyKeyLibrary.h"
#include "protocol/MainType.h"
#include "protocol/PointOfSaleText.h"
#include "protocol/SerialPtzCommand.h"
#include "protocol/SubType.h"
#include "protocol/SystemInfoRecord.h"

int KeyManagerLink::channelCount() const {
    return SystemInfo::record().channelCount;
}

SerialKeyboardBlock KeyManagerLink::serialKeyboard() {
    return ParamAccess::get<SerialKeyboardBlock>();
}

DeviceParamBlock KeyManagerLink::deviceParams() {
    return ParamAccess::get<DeviceParamBlock>();
}

void KeyManagerLink::storeDeviceParams(const DeviceParamBlock& block) {
    ParamAccess::set(block);
}

void KeyManagerLink::sendPointOfSaleText(const uint8_t* buffer, uint32_t length) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr || length > PointOfSaleText::kBufferSize)
        return;
    link->send(MainType::System, SystemSubType::PointOfSaleText, buffer, length);
}

void KeyManagerLink::sendPtzCommand(const PTZ_keyvaluet& command) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return;
    // The PTZ key board moves cameras as the PTZ panel does: the same right.
    if (UserAccess* users = UserAccess::instance();
        users != nullptr && !users->ensure(UserRights::kPtz))
        return;
    SerialPtzCommand wire{command.command, {command.param[0], command.param[1], command.param[2]}};
    uint8_t body[SerialPtzCommand::kSize];
    wire.encode(body);
    link->send(MainType::System, SystemSubType::SerialPtzCommand, body, sizeof body);
}
