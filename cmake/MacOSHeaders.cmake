# A toolchain that compiles for macOS on another system, against the platform's headers in the folder
# MACOS_HEADERS. Nothing can be linked with it. tools/check-macos.sh is what it is for.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACOS_HEADERS)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(llvm /usr/lib/llvm-19)
file(GLOB clang_headers ${llvm}/lib/clang/*/include)
foreach(language CXX OBJCXX)
  set(CMAKE_${language}_COMPILER ${llvm}/bin/clang++)
  set(CMAKE_${language}_COMPILER_TARGET arm64-apple-macos13)
  set(CMAKE_${language}_FLAGS_INIT
    "-nostdinc -nostdlibinc -isystem ${llvm}/include/c++/v1 -isystem ${clang_headers} -isystem ${MACOS_HEADERS}/include -iframework ${MACOS_HEADERS}/Frameworks -F ${MACOS_HEADERS}/Frameworks -fblocks")
endforeach()

# What only a Mac has, and what only linking would ask for.
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
set(CMAKE_INSTALL_NAME_TOOL true CACHE STRING "")
set(CMARK_GFM_LIBRARY cmark-gfm CACHE STRING "")
set(CMARK_GFM_EXTENSIONS_LIBRARY cmark-gfm-extensions CACHE STRING "")
# The toolkit is found where this system has it.
file(GLOB Qt6_DIR /usr/lib/*-linux-gnu/cmake/Qt6)
set(CMAKE_FRAMEWORK_PATH ${MACOS_HEADERS}/Frameworks)
# It would bring this system's own headers.
set(CMAKE_DISABLE_FIND_PACKAGE_WrapVulkanHeaders ON)
