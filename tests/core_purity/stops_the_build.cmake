# A library whose own code never looks at the header in question: good, it builds; with a bad
# header beside it, it does not; good again, it does. So the check is what stops it.
function(expect_build outcome)
  execute_process(
    COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build
    RESULT_VARIABLE status
    OUTPUT_VARIABLE said
    ERROR_VARIABLE said)
  if(status EQUAL 0)
    set(seen builds)
  elseif(said MATCHES "clock\\.h:1: #include <unistd\\.h>")
    set(seen refused)
  else()
    set(seen "fails for another reason")
  endif()
  if(NOT seen STREQUAL outcome)
    message(FATAL_ERROR "expected: ${outcome}, seen: ${seen}\n${said}")
  endif()
endfunction()

cmake_path(GET CHECK PARENT_PATH modules)
file(REMOVE_RECURSE ${SCRATCH})
file(WRITE ${SCRATCH}/src/models.cpp "#include <vector>\nstd::vector<int> models() { return {}; }\n")
file(WRITE ${SCRATCH}/src/clock.h "#include <chrono>\n")
file(WRITE ${SCRATCH}/CMakeLists.txt "
cmake_minimum_required(VERSION 3.25)
project(purity LANGUAGES CXX)
include(${modules}/CorePurity.cmake)
add_library(core STATIC src/models.cpp)
cumeron_check_core_purity(core \${CMAKE_CURRENT_SOURCE_DIR}/src)
")
execute_process(
  COMMAND ${CMAKE_COMMAND} -G Ninja -S ${SCRATCH} -B ${SCRATCH}/build
  RESULT_VARIABLE status
  OUTPUT_VARIABLE said
  ERROR_VARIABLE said)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the small project does not configure\n${said}")
endif()

expect_build(builds)
file(WRITE ${SCRATCH}/src/clock.h "#include <unistd.h>\n")
expect_build(refused)
file(WRITE ${SCRATCH}/src/clock.h "#include <chrono>\n")
expect_build(builds)
