# Installs a build into an empty prefix, then builds and runs programs against it: by CMake package,
# and by the README's command where pkg-config is present. Any failing step ends the script.
# Run as: cmake -D build= work= consumer= examples= readme= generator= compiler= flags= libdir=
# includedir= -P use_installed.cmake
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

# agent.cpp by the command of the README, with this build's compiler, and for a module.
function(build_by_pkg_config module source)
  file(READ ${readme} command)
  string(REGEX MATCH "\n    g\\+\\+ [^\n]*agent.cpp[^\n]*\\\\\n[^\n]*" command "${command}")
  string(REPLACE "g++ " "${compiler} ${flags} " command "${command}")
  string(REPLACE " hwrailseq)" " ${module})" command "${command}")
  set(folder ${work}/${module})
  file(MAKE_DIRECTORY ${folder})
  file(COPY_FILE ${source} ${folder}/agent.cpp)
  run(sh -e -c "cd '${folder}'\n${command}\n./agent")
endfunction()

unset(ENV{LD_LIBRARY_PATH})
find_program(pkg_config NAMES pkg-config pkgconf)
if(pkg_config)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${libdir}/pkgconfig)
  build_by_pkg_config(hwrailseq ${consumer}/consumer.cpp)
  build_by_pkg_config(hwrailseq-faults ${examples}/agent_under_faults.cpp)
endif()

execute_process(
  COMMAND ${compiler} -std=c++17 -fsyntax-only -I${prefix}/${includedir}/hwrailseq ${consumer}/consumer.cpp
  RESULT_VARIABLE result ERROR_VARIABLE said)
if(result EQUAL 0 OR NOT said MATCHES "HwRailSeq needs C\\+\\+20")
  message(FATAL_ERROR "an older C++ is not refused with a reason: ${said}")
endif()

if(EXISTS ${prefix}/bin/railseq)
  run(${prefix}/bin/railseq --help)
  foreach(file share/bash-completion/completions/railseq share/man/man1/railseq.1)
    if(NOT EXISTS ${prefix}/${file})
      message(FATAL_ERROR "${file} is not installed")
    endif()
  endforeach()
endif()
