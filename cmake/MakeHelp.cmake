# tarvex_make_help(OUTPUT path/Tarvex.hlp)
# Adds the target tarvex_help, part of every build, which compiles the pages of share/help into the help file.
function(tarvex_make_help)
  cmake_parse_arguments(HELP "" "OUTPUT" "" ${ARGN})
  find_package(Qt6 6.4 REQUIRED COMPONENTS ToolsTools)
  set(source_dir ${CMAKE_SOURCE_DIR}/share/help)
  file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/tarvex.qhp ${source_dir}/*.css ${source_dir}/*.html)
  add_custom_command(OUTPUT ${HELP_OUTPUT}
    COMMAND Qt6::qhelpgenerator -s ${source_dir}/tarvex.qhp -o ${HELP_OUTPUT}
    DEPENDS ${sources}
    COMMENT "Compiling the help file"
    VERBATIM)
  add_custom_target(tarvex_help ALL DEPENDS ${HELP_OUTPUT})
endfunction()
