# What a Linux session takes, and the choice of its display servers.
option(QUORVANTEL_X11 "Build for sessions on an X server" ON)
option(QUORVANTEL_WAYLAND "Build what the launcher needs on Wayland" ON)
if(NOT QUORVANTEL_X11 AND NOT QUORVANTEL_WAYLAND)
  message(FATAL_ERROR
    "QUORVANTEL_X11 and QUORVANTEL_WAYLAND are both off, and the launcher needs one of them")
endif()

find_package(Qt6 6.4 REQUIRED COMPONENTS DBus)
find_package(PkgConfig REQUIRED)
find_package(ZLIB 1.2 REQUIRED)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-unix-2.0>=2.74)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0>=2.2)
if(QUORVANTEL_WAYLAND)
  # What wayland-scanner writes is C.
  enable_language(C)
  pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client>=1.21)
  find_package(PlasmaWaylandProtocols 1.9 REQUIRED)
  include(cmake/WaylandProtocols.cmake)
endif()
