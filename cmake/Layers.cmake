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
endfunction()
