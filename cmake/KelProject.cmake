# Project-wide settings: warnings, sanitizers, Windows runtime, GoogleTest.

if(KEL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(KEL_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "KEL_FUZZ needs clang (libFuzzer)")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

include(GNUInstallDirs)

if(WIN32)
  set(CMAKE_SHARED_LIBRARY_PREFIX "")
  set(CMAKE_IMPORT_LIBRARY_PREFIX "")
  # C99 printf family on MinGW, so "%f", "%e" and "%g" give the same digits as on Linux; the
  # Windows 7 API level keeps the project's own code off newer calls. Both are the project's own
  # choices; what a host must share with the modules comes with their targets (_AFXDLL).
  add_compile_definitions(__USE_MINGW_ANSI_STDIO=1 WINVER=0x0601 _WIN32_WINNT=0x0601)
  # MFC's debug switch: a Debug build (the win32 preset) compiles the layer's ASSERTs.
  add_compile_definitions($<$<CONFIG:Debug>:_DEBUG>)
  # The modules share one C++ runtime, as MFC modules share one CRT: copy it beside the programs
  # and into the SDK's bin/, beside the library's DLLs.
  file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    set(_kel_gcc_dll libgcc_s_seh-1.dll)
  else()
    set(_kel_gcc_dll libgcc_s_dw2-1.dll)
  endif()
  foreach(_dll libstdc++-6.dll ${_kel_gcc_dll} libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${_dll}
                    OUTPUT_VARIABLE _path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${_path}" OR NOT EXISTS "${_path}")
      message(FATAL_ERROR "MinGW runtime ${_dll} not found")
    endif()
    file(COPY ${_path} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    install(FILES ${_path} DESTINATION ${CMAKE_INSTALL_BINDIR})
  endforeach()
endif()

function(kel_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wno-unused-parameter)
  if(KEL_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

if(KEL_BUILD_TESTS)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
  if(EXISTS /usr/src/googletest/CMakeLists.txt)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  else()
    message(FATAL_ERROR "GoogleTest sources not found: install Debian's googletest package")
  endif()
endif()
