# 64-bit ARM (arm64, LP64) with Debian's g++-aarch64-linux-gnu; the tests run
# under qemu-aarch64.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(KTL_CROSS_TRIPLET aarch64-linux-gnu)
set(KTL_QEMU qemu-aarch64)
set(KTL_DEBIAN_ARCHITECTURE arm64)
include(${CMAKE_CURRENT_LIST_DIR}/cross-debian.cmake)
