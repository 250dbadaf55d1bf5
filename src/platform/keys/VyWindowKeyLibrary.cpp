#include "platform/keys/VyWindowKeyLibrary.h"

#include "runtime/VyLog.h"

#include <string>

namespace {

// Which of the panel's lamp groups a command belongs to: the three blinking pairs (17/18,
// 96/97, 32/33), the mode commands (16, 33/97/17 sequences aside) and the data lamp (20, 21).
enum Group { PairA = 0, PairB = 1, PairC = 2, Mode = 3, Data = 4, Other = 5 };

Group groupOf(int command) {
    switch (command) {
    case 17:
    case 18:
        return PairA;
    case 96:
    case 97:
        return PairB;
    case 32:
    case 33:
        return PairC;
    case 16:
    case 40:
        return Mode;
    case 20:
    case 21:
        return Data;
    default:
        return Other;
    }
}

} // namespace

VyWindowKeyLibrary::VyWindowKeyLibrary() {
    if (!m_map.load(kKeyMapFile))
        vyFrameworkLog("no key map %s: the window's keys do nothing !!!\n", kKeyMapFile);
}

VyWindowKeyLibrary::VyWindowKeyLibrary(const VyKeyMap& map)
    : m_map(map) {}

void VyWindowKeyLibrary::keyPressed(const char* name) {
    if (name == nullptr)
        return;
    // Key names with blanks ("Keypad Enter") are written with '_' in the map.
    std::string code(name);
    for (char& c : code)
        if (c == ' ')
            c = '_';
    keys().push(m_map.deviceKey(VyString(code)));
}

void VyWindowKeyLibrary::lampCommand(int command, bool withData, unsigned int data) {
    std::lock_guard<std::mutex> lock(m_lampMutex);
    const Group group = groupOf(command);
    if (group <= PairC) {
        m_changed |= m_pairs[group] != command;
        m_pairs[group] = command;
    } else if (group == Mode) {
        m_changed |= m_mode != command;
        m_mode = command;
    } else if (group == Data) {
        const unsigned int value = command == 21 ? 0 : (withData ? data : 1);
        m_changed |= m_data != value;
        m_data = value;
    }
}

bool VyWindowKeyLibrary::takeStatusText(std::string* text) {
    std::lock_guard<std::mutex> lock(m_lampMutex);
    if (!m_changed || text == nullptr)
        return false;
    m_changed = false;
    std::string s = "lamps";
    for (int c : m_pairs)
        s += " " + std::to_string(c);
    if (m_mode != 0)
        s += " mode " + std::to_string(m_mode);
    s += " data " + std::to_string(m_data);
    *text = s;
    return true;
}
