# 32-bit ARM, hard float (the recorder boards): cmake -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-armhf.cmake
set(VY_CROSS_TRIPLE arm-linux-gnueabihf)
set(VY_CROSS_PROCESSOR arm)
set(VY_CROSS_QEMU qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/VyCrossToolchain.cmake)

