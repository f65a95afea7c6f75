# Proves at build time that every public header compiles alone and may be included twice. Lists of
# kinds and stamps are left out: they are made to be included where their macros are wanted.
set(src ${PROJECT_SOURCE_DIR}/src)
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${src} ${src}/*.h)
list(FILTER headers EXCLUDE REGEX "(^|/)(stamp_|kinds_)[^/]*\\.h$")

set(checks)
foreach(header IN LISTS headers)
  set(check ${PROJECT_BINARY_DIR}/header_check/${header}.cpp)
  file(CONFIGURE OUTPUT ${check} CONTENT "#include \"@header@\"\n#include \"@header@\"\n" @ONLY)
  list(APPEND checks ${check})
endforeach()

if(checks)
  add_library(header_check OBJECT ${checks})
  target_link_libraries(header_check PRIVATE HwRailSeq::HwRailSeq HwRailSeq::faults hwrailseq_build_options)
  # Only whether it compiles is of interest, not what comes out.
  target_compile_options(header_check PRIVATE -O0 -g0)
endif()
