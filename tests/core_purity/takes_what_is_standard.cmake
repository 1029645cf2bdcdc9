# What the core may include, and what lies beyond its border and is not read.
file(REMOVE_RECURSE ${SCRATCH})
file(WRITE ${SCRATCH}/src/intake/models.h "#include <cstdint>\n#include <string_view>\n")
file(WRITE ${SCRATCH}/src/intake/models.cpp [=[
#include "intake/models.h"

#include <vector>  // [not QString]; one reason

#include "models.h"
#include "../platform/clock.h"
#  include <memory_resource>
/* why */ #include <span>
// #include <QString>
const char* text = "#include <QString>";
]=])
file(WRITE ${SCRATCH}/src/platform/clock.h "#include <chrono>\n")
file(WRITE ${SCRATCH}/src/platform/host/clock.cpp "#include <QDateTime>\n#include <unistd.h>\n")
file(WRITE ${SCRATCH}/src/app/main.cpp "#include <QApplication>\n")
file(WRITE ${SCRATCH}/src/shell/forms/main.ui "#include <QString>\n")
execute_process(
  COMMAND ${CMAKE_COMMAND} -DROOT=${SCRATCH}/src -P ${CHECK}
  RESULT_VARIABLE status
  ERROR_VARIABLE said)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "a good tree was refused\n${said}")
endif()
