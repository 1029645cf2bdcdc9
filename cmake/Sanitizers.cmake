# CUMERON_SANITIZE: a list as the compiler's -fsanitize takes it, for the presets asan and fuzz.
# CUMERON_FUZZ:     builds the core and the fuzzers alone, with clang++; cumeron_fuzzer brings the
#                   main program of a fuzzer.
set(CUMERON_SANITIZE "" CACHE STRING "Sanitizers for the whole build, as -fsanitize takes them")
option(CUMERON_FUZZ "Build the fuzzers, and nothing that needs Qt" OFF)

if(CUMERON_SANITIZE)
  add_compile_options(-fsanitize=${CUMERON_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${CUMERON_SANITIZE})
endif()

if(CUMERON_FUZZ)
  add_library(cumeron_fuzzer INTERFACE)
  target_link_options(cumeron_fuzzer INTERFACE -fsanitize=fuzzer)
endif()
