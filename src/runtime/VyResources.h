#pragma once
// The resources root: the folder that holds "style/", "images/", "cursor-image/", "font/",
// "./language" and "custom-config.ini". Empty means the working directory, which is how the
// GUI is normally started (from its resources folder).
#include "runtime/VyString.h"

class VyResources {
public:
    static void setRoot(const VyString& root);
    static VyString root();
    // A resource path resolved against the root; an absolute path is returned as it is.
    static VyString path(const VyString& relative);
};
