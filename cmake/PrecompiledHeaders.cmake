# cumeron_precompile(TARGET HEADER...): compiles these headers once for all files of the target.
# Each test includes much and does little, so that reading headers is half of what it costs.
function(cumeron_precompile target)
  target_precompile_headers(${target} PRIVATE ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fpch-preprocess)  # ccache asks for it
  endif()
endfunction()
