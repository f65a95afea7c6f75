# How everything of this project is compiled: one interface target, linked privately by each target,
# so that neither the warnings nor the sanitizers reach a user of the libraries.
set(HWRAILSEQ_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=, e.g. address,undefined")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_library(hwrailseq_build_options INTERFACE)
target_compile_features(hwrailseq_build_options INTERFACE cxx_std_20)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
target_compile_options(
  hwrailseq_build_options
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Woverloaded-virtual -Werror)

if(HWRAILSEQ_SANITIZE)
  set(hwrailseq_sanitizer_flags -fsanitize=${HWRAILSEQ_SANITIZE} -fno-sanitize-recover=all
                                -fno-omit-frame-pointer)
  target_compile_options(hwrailseq_build_options INTERFACE ${hwrailseq_sanitizer_flags})
  target_link_options(hwrailseq_build_options INTERFACE ${hwrailseq_sanitizer_flags})
endif()

# A library must name all it needs. clang leaves the sanitizers' runtime to the executable, so there
# a sanitized library cannot be complete.
if(NOT (HWRAILSEQ_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
  target_link_options(hwrailseq_build_options INTERFACE LINKER:--no-undefined)
endif()
