// dvrgui: the recorder's local GUI. Run it from its resources folder.
#include "app/AppStartup.h"

int main(int argc, char** argv) {
    return AppStartup::run(argc, argv);
}
