# quorvantel_wayland_protocols(NAME file.xml...)
#
# A static library with what wayland-scanner makes of protocol descriptions, for clients: for each
# a header "<name>-client-protocol.h" and the tables that describe its messages.
function(quorvantel_wayland_protocols name)
  pkg_get_variable(scanner wayland-scanner wayland_scanner)
  set(directory ${CMAKE_CURRENT_BINARY_DIR}/${name})
  file(MAKE_DIRECTORY ${directory})
  set(generated)
  foreach(description IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH description)
    cmake_path(GET description STEM stem)
    set(header ${directory}/${stem}-client-protocol.h)
    set(code ${directory}/${stem}-protocol.c)
    add_custom_command(OUTPUT ${header} ${code}
      COMMAND ${scanner} client-header ${description} ${header}
      COMMAND ${scanner} private-code ${description} ${code}
      DEPENDS ${description} VERBATIM)
    list(APPEND generated ${header} ${code})
  endforeach()
  add_library(${name} STATIC ${generated})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_include_directories(${name} SYSTEM PUBLIC ${directory})
  target_link_libraries(${name} PUBLIC PkgConfig::WAYLAND)
endfunction()
