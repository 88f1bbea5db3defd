# Shared part of the MinGW-w64 toolchain files; KEL_MINGW_TRIPLE names the target.
set(CMAKE_C_COMPILER ${KEL_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KEL_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${KEL_MINGW_TRIPLE}-windres)
# The MinGW tree is the target's root; so are the prefixes a host names in CMAKE_PREFIX_PATH
# (an installed KelControls SDK), which the ONLY modes would otherwise look for inside it.
set(CMAKE_FIND_ROOT_PATH /usr/${KEL_MINGW_TRIPLE} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Test programs run under Wine; the wrapper keeps a private prefix in the build tree.
# Only the 64-bit build is run here: the machine has no 32-bit Wine.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run.sh)
endif()
