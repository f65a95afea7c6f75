# Installs a build into an empty prefix, then builds and runs the consumer against it: by CMake
# package, and by pkg-config where that is present. Any failing step ends the script.
# Run as: cmake -D build= work= consumer= generator= compiler= flags= libdir= -P use_installed.cmake
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${build} --prefix ${prefix})

run(${CMAKE_COMMAND} -S ${consumer} -B ${work}/by_cmake -G ${generator}
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${work}/by_cmake)
run(${work}/by_cmake/consumer)

find_program(pkg_config NAMES pkg-config pkgconf)
if(pkg_config)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${libdir}/pkgconfig)
  execute_process(
    COMMAND ${pkg_config} --cflags --libs hwrailseq
    OUTPUT_VARIABLE package_flags COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(package_flags UNIX_COMMAND "${package_flags}")
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run(${compiler} -std=c++20 ${flags} ${consumer}/consumer.cpp -o ${work}/by_pkg_config ${package_flags})
  set(ENV{LD_LIBRARY_PATH} ${prefix}/${libdir})
  run(${work}/by_pkg_config)
endif()

if(EXISTS ${prefix}/bin/railseq)
  unset(ENV{LD_LIBRARY_PATH})
  run(${prefix}/bin/railseq --help)
  foreach(file share/bash-completion/completions/railseq share/man/man1/railseq.1)
    if(NOT EXISTS ${prefix}/${file})
      message(FATAL_ERROR "${file} is not installed")
    endif()
  endforeach()
endif()
