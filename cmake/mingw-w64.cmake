# Cross compiling for 64-bit Windows with Debian's MinGW-w64 (g++-mingw-w64-x86-64,
# mingw-w64-tools for widl). Programs such as chmcmd and widl run on the build machine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZV_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ZV_MINGW_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${ZV_MINGW_TRIPLE}-g++)
set(CMAKE_RC_COMPILER ${ZV_MINGW_TRIPLE}-windres)
set(ZV_WIDL ${ZV_MINGW_TRIPLE}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${ZV_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Only the system's DLLs at run time: the compiler's own libraries go inside.
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static-libgcc -static-libstdc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
