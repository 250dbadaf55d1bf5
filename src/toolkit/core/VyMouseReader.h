#pragma once
// What the application needs of the mouse reader thread. The reader itself
// (VyMouseWatcher) lives in the input library above the core; start-up installs its
// factory before the application object is made, and the constructor creates and starts
// the reader through it, so the core never includes the input code.
#include "runtime/VyRect.h"
#include "toolkit/core/VyThread.h"

#include <memory>

class VyObject;

class VyMouseReader : public VyThread {
public:
    // Makes the reader for the object that receives its raw samples (the application).
    using Factory = std::unique_ptr<VyMouseReader> (*)(VyObject* owner);

    // The factory the next application object uses; null (the default) means no mouse.
    static void setFactory(Factory factory);
    static Factory factory();

    // The range the pointer may take, inclusive.
    virtual void setBounds(int minX, int minY, int maxX, int maxY) = 0;
    // Moves the pointer there (clamped) as if the device had moved it: the screen warps
    // with it and a window backend feeds absolute positions through it.
    virtual void moveTo(int x, int y, int buttons, int wheel, bool force) = 0;
};
