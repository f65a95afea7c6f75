# hwrailseq_library: one of the project's shared libraries.

# hwrailseq_library(<name> FOLDERS <folder of src>... [LINKS <library>...])
# Makes lib<name>.so of every source in the folders and below them, with the alias HwRailSeq::<name>.
function(hwrailseq_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FOLDERS;LINKS")
  list(TRANSFORM arg_FOLDERS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/src/\\1/*.cpp" OUTPUT_VARIABLE patterns)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${patterns})
  add_library(${name} SHARED ${sources})
  add_library(HwRailSeq::${name} ALIAS ${name})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(
    ${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
                   $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/hwrailseq>)
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE hwrailseq_build_options)
  set_target_properties(
    ${name}
    PROPERTIES VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR}
               INSTALL_RPATH "$ORIGIN")
endfunction()
