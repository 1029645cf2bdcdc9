# cumeron_warnings: linked PRIVATE by every target of the project. The warnings are errors, since
# a narrowing that nobody meant is a wrong number on the screen.
add_library(cumeron_warnings INTERFACE)
target_compile_options(
  cumeron_warnings
  INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
