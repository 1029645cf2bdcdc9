# cumeron_check_core_purity(TARGET ROOT) makes TARGET depend on a scan of the C++ sources below
# ROOT, platform/host and app left out: the build fails when one of them includes anything but the
# C++ standard library and its own kind. The scan runs again when a file below ROOT changes.
set(CUMERON_CORE_PURITY_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/CheckCorePurity.cmake)

function(cumeron_check_core_purity target root)
  file(GLOB_RECURSE scanned CONFIGURE_DEPENDS ${root}/*.h ${root}/*.hpp ${root}/*.inc
       ${root}/*.cpp)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}_purity.stamp)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DROOT=${root} -P ${CUMERON_CORE_PURITY_SCRIPT}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${scanned} ${CUMERON_CORE_PURITY_SCRIPT}
    COMMENT "Checking that ${target} includes the C++ standard library only"
    VERBATIM)
  add_custom_target(${target}_purity DEPENDS ${stamp})
  add_dependencies(${target} ${target}_purity)
endfunction()
