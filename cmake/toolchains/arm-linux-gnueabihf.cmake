# 32-bit ARM (armhf, ILP32) with Debian's g++-arm-linux-gnueabihf; the tests
# run under qemu-arm.
set(CMAKE_SYSTEM_PROCESSOR arm)
set(KTL_CROSS_TRIPLET arm-linux-gnueabihf)
set(KTL_QEMU qemu-arm)
set(KTL_DEBIAN_ARCHITECTURE armhf)
include(${CMAKE_CURRENT_LIST_DIR}/cross-debian.cmake)
