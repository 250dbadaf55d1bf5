#pragma once
// The key source of a PC: the desktop window's keyboard. The window hands on the names of
// the keys pressed in it ("Up", "Return", "F2", ...); the key map "keymap/window.ini" says
// which device key each stands for (the README lists the table). The lamps have no LEDs
// here: their state is kept as a short text that the window shows in its title.
#include <mutex>
#include <string>

#include "platform/keys/VyKeyMap.h"
#include "platform/keys/VyQueuedKeyLibrary.h"

class VyWindowKeyLibrary : public VyQueuedKeyLibrary {
public:
    static constexpr const char* kKeyMapFile = "keymap/window.ini";

    // Loads the key map from the resources.
    VyWindowKeyLibrary();
    // With a key map already read (tests).
    explicit VyWindowKeyLibrary(const VyKeyMap& map);

    // A key pressed in the window; names the map does not know are ignored.
    void keyPressed(const char* name);
    // The lamp state as a text ("lamps 17 97 33 data 4"); true when it changed since the
    // last call, which is the only time `text` is written.
    bool takeStatusText(std::string* text);

protected:
    void lampCommand(int command, bool withData, unsigned int data) override;

private:
    VyKeyMap m_map;
    std::mutex m_lampMutex; // guards the lamp state below
    // The last command of each of the panel's lamp groups, 0 before the first.
    int m_pairs[3] = {0, 0, 0};
    int m_mode = 0;
    unsigned int m_data = 0;
    bool m_changed = false;
};
