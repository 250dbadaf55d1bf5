#include "app/ResourcesOverride.h"

#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "runtime/VyUniqueFd.h"

#include <fcntl.h>
#include <unistd.h>

bool ResourcesOverride::apply(const char* file) {
    VyUniqueFd fd(::open(file, O_RDONLY));
    if (!fd.isValid())
        return false;
    char buffer[kMaxBytes];
    const ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
    if (n < 1) {
        // Left open as the device firmware leaves it; one descriptor for the whole run.
        fd.release();
        return false;
    }
    s_overridden = true;
    VyResources::setRoot(VyString(buffer, int(n)));
    return true;
}

bool ResourcesOverride::applyInstalledFallback(const char* dataDir) {
    static const char kStyleSheet[] = "style/commonstyle.ini";
    if (!VyResources::root().isEmpty() || !dataDir || !*dataDir || ::access(kStyleSheet, R_OK) == 0)
        return false;
    const VyString root(dataDir);
    if (::access((root + "/" + kStyleSheet).c_str(), R_OK) != 0)
        return false;
    VyResources::setRoot(root);
    vyStartupLog("resources from %s\n", dataDir);
    return true;
}
