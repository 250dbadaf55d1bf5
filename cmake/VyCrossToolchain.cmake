# Shared body of the cross toolchain files. The including file sets VY_CROSS_TRIPLE,
# VY_CROSS_PROCESSOR and VY_CROSS_QEMU first.
#
# Two ways to give the target's libraries:
#   -DCMAKE_SYSROOT=/path   a board vendor's complete sysroot (C library and all);
#   -DVY_TARGET_ROOT=/path  a folder of unpacked Debian packages of the target
#                           (tools/cross-sysroot.sh makes one); the cross compiler keeps its
#                           own C library and the folder adds the project's libraries.
# Either may also come from the environment variable of the same name.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${VY_CROSS_PROCESSOR})

set(CMAKE_C_COMPILER ${VY_CROSS_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${VY_CROSS_TRIPLE}-g++)

if(NOT VY_TARGET_ROOT AND DEFINED ENV{VY_TARGET_ROOT})
  set(VY_TARGET_ROOT "$ENV{VY_TARGET_ROOT}")
endif()
if(NOT CMAKE_SYSROOT AND DEFINED ENV{CMAKE_SYSROOT})
  set(CMAKE_SYSROOT "$ENV{CMAKE_SYSROOT}")
endif()
# try_compile projects re-read this file without the cache; hand the choices on to them.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VY_TARGET_ROOT VY_CROSS_TRIPLE)

set(_vy_lib_dirs)
if(VY_TARGET_ROOT)
  list(APPEND CMAKE_FIND_ROOT_PATH "${VY_TARGET_ROOT}")
  set(_vy_lib_dirs "${VY_TARGET_ROOT}/lib/${VY_CROSS_TRIPLE}" "${VY_TARGET_ROOT}/usr/lib/${VY_CROSS_TRIPLE}")
  # Multiarch headers (jconfig.h, ...) live below the triple; the libraries' own
  # dependencies are found through -rpath-link, which leaves no trace in the binaries.
  # Set, not appended: CMake reads this file more than once per configuration.
  set(CMAKE_C_FLAGS_INIT "-isystem ${VY_TARGET_ROOT}/usr/include/${VY_CROSS_TRIPLE}")
  set(CMAKE_CXX_FLAGS_INIT "-isystem ${VY_TARGET_ROOT}/usr/include/${VY_CROSS_TRIPLE}")
  set(_vy_link "")
  foreach(dir ${_vy_lib_dirs})
    string(APPEND _vy_link " -Wl,-rpath-link,${dir}")
  endforeach()
  set(CMAKE_EXE_LINKER_FLAGS_INIT "${_vy_link}")
  set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_vy_link}")
  set(ENV{PKG_CONFIG_SYSROOT_DIR} "${VY_TARGET_ROOT}")
  set(ENV{PKG_CONFIG_LIBDIR} "${VY_TARGET_ROOT}/usr/lib/${VY_CROSS_TRIPLE}/pkgconfig:${VY_TARGET_ROOT}/usr/share/pkgconfig")
elseif(CMAKE_SYSROOT)
  set(ENV{PKG_CONFIG_SYSROOT_DIR} "${CMAKE_SYSROOT}")
  set(ENV{PKG_CONFIG_LIBDIR} "${CMAKE_SYSROOT}/usr/lib/${VY_CROSS_TRIPLE}/pkgconfig:${CMAKE_SYSROOT}/usr/lib/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig")
endif()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The target's binaries run here through qemu-user: ctest, test discovery, and (through
# VY_EXEC_PREFIX, which the test folders export) the child processes the end-to-end tests
# start. The prefix is where the target's dynamic loader and libraries are.
find_program(VY_QEMU ${VY_CROSS_QEMU})
if(VY_QEMU)
  if(CMAKE_SYSROOT)
    set(_vy_prefix "${CMAKE_SYSROOT}")
  elseif(VY_TARGET_ROOT)
    set(_vy_prefix "${VY_TARGET_ROOT}")
  else()
    set(_vy_prefix "/usr/${VY_CROSS_TRIPLE}")
  endif()
  set(CMAKE_CROSSCOMPILING_EMULATOR "${VY_QEMU};-L;${_vy_prefix}")
endif()
