# Compiler settings that hold for all of the project's own code.
add_library(quorvantel_options INTERFACE)
target_compile_options(quorvantel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion
  $<$<BOOL:${QUORVANTEL_WERROR}>:-Werror>
  # Scores are compared bit for bit, so no multiplication and addition may be fused.
  -ffp-contract=off)
target_compile_definitions(quorvantel_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
  QT_USE_QSTRINGBUILDER)
if(QUORVANTEL_SANITIZE)
  target_compile_options(quorvantel_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(quorvantel_options INTERFACE -fsanitize=address,undefined)
endif()

# A compiler cache saves more than precompiled headers do, and with them finds nothing of another
# folder's.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(QUORVANTEL_PRECOMPILE OFF)
endif()

# precompile_headers(NAME LEAST HEADERS...): the headers that most sources of a target include take
# half of the time that a source takes. A target of fewer than LEAST sources does not make up for
# what precompiling takes.
function(precompile_headers name least)
  get_target_property(sources ${name} SOURCES)
  list(FILTER sources INCLUDE REGEX "[.]cpp$")
  list(LENGTH sources count)
  if(QUORVANTEL_PRECOMPILE AND count GREATER_EQUAL least)
    target_precompile_headers(${name} PRIVATE ${ARGN})
  endif()
endfunction()

# quorvantel_layer(NAME SOURCES file... LINKS target...)
#
# One static library a layer. A layer that includes a header of a layer which it does not link
# leaves undefined symbols in the tests of that layer, which link nothing else.
function(quorvantel_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${layer_SOURCES})
  target_include_directories(${name} PUBLIC
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/Quorvantel)
  target_link_libraries(${name} PUBLIC ${layer_LINKS} PRIVATE quorvantel_options)
  if("Qt6::Widgets" IN_LIST layer_LINKS)
    set(toolkit <QApplication> <QPainter> <QWidget>)
  elseif("Qt6::Gui" IN_LIST layer_LINKS)
    set(toolkit <QGuiApplication> <QWindow>)
  endif()
  precompile_headers(${name} 6
    <algorithm> <functional> <memory> <optional> <variant> <vector>
    <QHash> <QObject> <QString> <QVariant> ${toolkit})
endfunction()
