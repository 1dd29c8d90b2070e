# SPDX-License-Identifier: MIT
# What every target of this project has in common: language level, warnings, sanitizers, output folders.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()
# Installed programs find their libraries beside themselves, so that an installed tree can be moved.
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")

# What moc and rcc write is nobody's style. clang-tidy wants one check at least.
if(CMAKE_CXX_CLANG_TIDY)
  file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")
endif()

find_program(KOVA_CCACHE ccache)
if(KOVA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KOVA_CCACHE}")
  set(CMAKE_C_COMPILER_LAUNCHER "${KOVA_CCACHE}")
endif()

if(KOVA_SANITIZE)
  add_compile_options(-fsanitize=${KOVA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KOVA_SANITIZE})
endif()

# Options for a target that we wrote. Floating-point results must not depend on the machine: no fused multiply-adds.
function(kova_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion -ffp-contract=off
                                           $<$<BOOL:${KOVA_WERROR}>:-Werror>)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kova>)
endfunction()
