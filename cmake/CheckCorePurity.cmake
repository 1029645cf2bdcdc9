# cmake -DROOT=FOLDER -P CheckCorePurity.cmake
#
# Reads the #include lines of every C++ file below FOLDER, except in FOLDER/platform/host and
# FOLDER/app, and fails with FILE:LINE of each that is
#   <...>  and no header of the C++20 standard library,
#   "..."  and no file of the scanned tree itself, by its path from FOLDER or from the file,
#   else   (a macro, an import), since such a line could bring in anything.
# The names of the C library with .h are not on the list: they declare the system's calls as well.
cmake_minimum_required(VERSION 3.25)

set(standard_headers
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv
    chrono cinttypes climits clocale cmath codecvt compare complex concepts condition_variable
    coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar
    cwctype deque exception execution filesystem format forward_list fstream functional future
    initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map
    memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio
    regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple
    type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector
    version)

set(scanned_files "\\.(h|hpp|inc|cpp)$")
set(beyond_the_core "^(platform/host|app)/")

# Sets RESULT to whether PATH is a file that the scan reads, too.
function(is_core_file path result)
  set(${result} FALSE PARENT_SCOPE)
  if(EXISTS ${path} AND NOT IS_DIRECTORY ${path})
    file(REAL_PATH ${path} path)
    cmake_path(IS_PREFIX ROOT ${path} inside)
    cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${ROOT})
    if(inside AND path MATCHES "${scanned_files}" AND NOT path MATCHES "${beyond_the_core}")
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endif()
endfunction()

# Sets RESULT to whether FILE, a path from ROOT, may include OPERAND, the text behind "include".
function(may_include file operand result)
  set(allowed FALSE)
  if(operand MATCHES "^<([^>]*)>")
    if(CMAKE_MATCH_1 IN_LIST standard_headers)
      set(allowed TRUE)
    endif()
  elseif(operand MATCHES "^\"([^\"]*)\"")
    set(name ${CMAKE_MATCH_1})
    cmake_path(GET file PARENT_PATH folder)
    is_core_file(${ROOT}/${folder}/${name} beside)
    is_core_file(${ROOT}/${name} below_root)
    if(beside OR below_root)
      set(allowed TRUE)
    endif()
  endif()
  set(${result} ${allowed} PARENT_SCOPE)
endfunction()

file(REAL_PATH "${ROOT}" ROOT)
file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/*)
list(FILTER files INCLUDE REGEX "${scanned_files}")
list(FILTER files EXCLUDE REGEX "${beyond_the_core}")
if(NOT files)
  message(FATAL_ERROR "no C++ file below ${ROOT}")
endif()

set(found "")
foreach(file IN LISTS files)
  # One list element a line: what would split or join elements is put out of the way first, and a
  # digraph or a line cut by a backslash is written as what the compiler takes it for.
  file(READ ${ROOT}/${file} text)
  string(REGEX REPLACE "[];[]" " " text "${text}")
  string(REPLACE "%:" "#" text "${text}")
  string(REGEX REPLACE "\\\\\r?\n" " " text "${text}")
  string(REPLACE "\\" "/" text "${text}")
  string(REGEX REPLACE "\r?\n" ";" text "${text}")
  set(number 0)
  foreach(line IN LISTS text)
    math(EXPR number "${number} + 1")
    if(line MATCHES "^[ \t]*(/\\*.*\\*/)?[ \t]*#[ \t]*(/\\*.*\\*/)?[ \t]*(include|import)(.*)$")
      set(directive ${CMAKE_MATCH_3})
      string(STRIP "${CMAKE_MATCH_4}" operand)
      may_include(${file} "${operand}" allowed)
      if(directive STREQUAL "import" OR NOT allowed)
        string(APPEND found "  ${ROOT}/${file}:${number}: #${directive} ${operand}\n")
      endif()
    endif()
  endforeach()
endforeach()

if(found)
  message(FATAL_ERROR "The core includes the C++ standard library and its own headers only. "
                      "What needs Qt or the system belongs in platform/host.\n\n${found}")
endif()
