# 64-bit ARM: cmake -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-aarch64.cmake
set(VY_CROSS_TRIPLE aarch64-linux-gnu)
set(VY_CROSS_PROCESSOR aarch64)
set(VY_CROSS_QEMU qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/VyCrossToolchain.cmake)
