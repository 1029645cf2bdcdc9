# cumeron_warnings: linked PRIVATE by every target of the project. The warnings are errors, since
# a narrowing that nobody meant is a wrong number on the screen.
add_library(cumeron_warnings INTERFACE)
target_compile_options(
  cumeron_warnings
  INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

# g++ 12, when it optimises, sees overlapping copies inside std::string where there are none:
# "text" + std::string("more") is enough.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(cumeron_warnings INTERFACE -Wno-restrict)
endif()
