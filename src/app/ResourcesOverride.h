#pragma once
// The optional override of the resources root: a file whose first bytes (at most 256) are
// the root's path, taken as they are (a trailing newline stays part of the path).
#include "runtime/VyString.h"

class ResourcesOverride {
public:
    static constexpr const char* kDefaultPath = "/tmp/resourcesPath.txt";
    static constexpr int kMaxBytes = 256; // bytes read from the file, at most

    // Reads `file`; when it gives at least one byte, makes that text the resources root and
    // returns true. A missing or empty file changes nothing.
    static bool apply(const char* file = kDefaultPath);
    static bool isOverridden() { return s_overridden; }

    // An installed GUI started from anywhere but its resources folder: when no root is
    // set (no override) and the working directory holds no common style sheet, the
    // installed data folder (`dataDir`, which holds one) becomes the root. True when taken.
    static bool applyInstalledFallback(const char* dataDir);

private:
    static inline bool s_overridden = false;
};
