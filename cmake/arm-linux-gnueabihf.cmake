# Builds for armhf on a Debian machine. scripts/build installs the compiler, the libraries that live
# beside those of the machine under /usr/lib/arm-linux-gnueabihf, and the emulator that runs what is
# built.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CMAKE_CXX_COMPILER ${CMAKE_LIBRARY_ARCHITECTURE}-g++)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)
