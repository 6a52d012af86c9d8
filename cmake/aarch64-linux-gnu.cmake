# Linux on 64-bit ARM, from Linux on a PC: Debian's cross compiler and its libraries for that architecture. Their programs
# run here under an emulator, which needs no help of the kernel.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(PKG_CONFIG_EXECUTABLE aarch64-linux-gnu-pkg-config)
# Qt's own tools are the host's, its descriptions of them stand with the target's libraries.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/aarch64-linux-gnu/cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-aarch64-static)
