# Warnings, sanitizers and the helpers that every module and test folder use.

add_compile_options(-Wall -Wextra -Wshadow -Wnon-virtual-dtor -Wsuggest-override
                    -Wimplicit-fallthrough)
# 64-bit time_t and file offsets where the C library offers them (glibc 2.34 and later on
# 32-bit targets; nothing changes on 64-bit ones): a recorder runs past 2038.
add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
if(VY_ARM_NEON)
  add_compile_options(-mfpu=neon-vfpv4)
endif()
if(VY_WERROR)
  add_compile_options(-Werror)
endif()

if(VY_SANITIZE STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
elseif(VY_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
elseif(NOT VY_SANITIZE STREQUAL "")
  message(FATAL_ERROR "VY_SANITIZE must be '', 'address' or 'thread'")
endif()

# One library per module: every .cpp below the module folder, headers included as
# "module/Header.h" from src/.
function(vy_add_module name dir)
  cmake_parse_arguments(ARG "" "" "DEPS;EXCLUDE;INCLUDES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  foreach(ex ${ARG_EXCLUDE})
    list(FILTER sources EXCLUDE REGEX "${ex}")
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${ARG_INCLUDES})
    target_link_libraries(${name} PUBLIC ${ARG_DEPS})
  else()
    # A module that holds only headers so far.
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src ${ARG_INCLUDES})
    target_link_libraries(${name} INTERFACE ${ARG_DEPS})
  endif()
endfunction()

# One test executable per test folder; each test case becomes a ctest test.
# LABELS "threaded" marks the suites that also run under ThreadSanitizer.
function(vy_add_test_dir name dir)
  cmake_parse_arguments(ARG "" "" "DEPS;LABELS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main GTest::gmock)
  target_compile_definitions(${name} PRIVATE
    VY_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
    VY_RESOURCES_DIR="${PROJECT_SOURCE_DIR}/resources"
    VY_BINARY_DIR="${PROJECT_BINARY_DIR}"
    VY_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  set(props TIMEOUT 300)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    # The end-to-end tests start recorder-sim and dvrgui through the same emulator.
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " prefix)
    list(APPEND props ENVIRONMENT "VY_EXEC_PREFIX=${prefix}")
  endif()
  if(ARG_LABELS)
    list(APPEND props LABELS ${ARG_LABELS})
  endif()
  gtest_discover_tests(${name}
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    DISCOVERY_TIMEOUT 120
    PROPERTIES ${props})
endfunction()
