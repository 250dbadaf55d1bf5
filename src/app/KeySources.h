#pragma once
// Chooses where the keys come from for the display in use and hands it to the key manager
// before the models make it: a desktop window's keyboard when the GUI runs in a window (its
// lamp state shows in the window's title), the Linux input devices otherwise. The joystick
// reader starts when a joystick key map is installed; its keys join the same queue.
class KeyManagerLink;
class VyApplication;

class KeySources {
public:
    static void install(VyApplication* app, KeyManagerLink* link);
};
