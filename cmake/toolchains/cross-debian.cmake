# Shared part of the toolchain files for Debian's cross compilers; the file
# that includes this one sets KTL_CROSS_TRIPLET and CMAKE_SYSTEM_PROCESSOR.
#
# The compilers are Debian's <triplet>-gcc/g++ packages; the target's C and
# C++ runtimes are under /usr/<triplet>. Header-only dependencies (Boost,
# Mustache) are the same for every architecture and come from /usr/include,
# which the cross compilers search after their own directories.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${KTL_CROSS_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${KTL_CROSS_TRIPLET}-g++)

set(CMAKE_FIND_ROOT_PATH /usr/${KTL_CROSS_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
# pkg-config answers for the target, never with this machine's libraries.
set(ENV{PKG_CONFIG_LIBDIR} "/usr/lib/${KTL_CROSS_TRIPLET}/pkgconfig:/usr/${KTL_CROSS_TRIPLET}/lib/pkgconfig")

# ctest runs the target's programs under qemu-user, pointed at the target's
# libraries. No binfmt registration is needed: the emulator is named on each
# command line, and the tests that start ktl-cli as a child put it in front
# of ktl-cli too.
find_program(KTL_QEMU_PROGRAM ${KTL_QEMU} REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${KTL_QEMU_PROGRAM} -L /usr/${KTL_CROSS_TRIPLET})
