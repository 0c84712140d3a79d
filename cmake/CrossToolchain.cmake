# SPDX-License-Identifier: Apache-2.0
# Compiles for the machine whose triple CAMERA_CROSS_TRIPLE names, such as s390x-linux-gnu, with Debian's cross compiler,
# and runs what comes of it under qemu.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CAMERA_CROSS_TRIPLE)
string(REGEX MATCH "^[a-z0-9]+" CMAKE_SYSTEM_PROCESSOR "${CAMERA_CROSS_TRIPLE}")
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${CAMERA_CROSS_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${CAMERA_CROSS_TRIPLE}-g++)
# g++ remarks on every function whose arguments it passes otherwise than before version 7, on a 32-bit Arm.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${CMAKE_SYSTEM_PROCESSOR} -L /usr/${CAMERA_CROSS_TRIPLE})
