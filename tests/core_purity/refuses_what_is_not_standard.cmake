# Each line, put second into an otherwise good source, must be refused with the place where it is.
set(bad_lines
    "#include <QString>"
    "#include <QtCore/qglobal.h>"
    "#include \"QString\""
    "#include \"QtCore/qstring.h\""
    "#include <unistd.h>"
    "#include <sys/types.h>"
    "#include \"unistd.h\""
    "#include <time.h>"
    "#include<QString>"
    "  #  include <QString>"
    "#include <QString> // [kept], one reason\\\\; and another"
    "#include/**/<QString>"
    "/* why */ #include <QString>"
    "#/**/include <QString>"
    "%:include <QString>"
    "#include_next <unistd.h>"
    "#import <vector>"
    "#include SYSTEM_HEADER"
    "#include \"platform/host/serial_port.h\""
    "#include \"../platform/host/serial_port.h\""
    "#include <platform/host/serial_port.h>"
    "#include \"app/main_options.h\""
    "#include \"../../outside.h\""
    "#include \"platform/notes.txt\""
    "#include \"platform/\""
    "#include \"missing.h\"")

foreach(file IN ITEMS intake/models.cpp intake/models.h platform/scripted/clock.cpp)
  foreach(line IN LISTS bad_lines)
    file(REMOVE_RECURSE ${SCRATCH})
    file(WRITE ${SCRATCH}/src/platform/host/serial_port.h "#include <QSerialPort>\n")
    file(WRITE ${SCRATCH}/src/platform/notes.txt "int notes;\n")
    file(WRITE ${SCRATCH}/src/app/main_options.h "int options;\n")
    file(WRITE ${SCRATCH}/outside.h "int outside;\n")
    file(WRITE ${SCRATCH}/src/readings/good.cpp "#include <vector>\n")
    file(WRITE ${SCRATCH}/src/${file} "#include <vector>\n${line}\n#include <string>\n")
    execute_process(
      COMMAND ${CMAKE_COMMAND} -DROOT=${SCRATCH}/src -P ${CHECK}
      RESULT_VARIABLE status
      ERROR_VARIABLE said)
    string(FIND "${said}" "/${file}:2: #" place)
    if(status EQUAL 0 OR place EQUAL -1)
      message(SEND_ERROR "${file}: taken, or refused without its place: ${line}\n${said}")
    endif()
    if(said MATCHES ":(1|3): #")
      message(SEND_ERROR "${file}: a standard header beside ${line} was refused\n${said}")
    endif()
  endforeach()
endforeach()

# An empty tree is a mistake of the caller, not a clean one.
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/src)
execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${SCRATCH}/src -P ${CHECK}
                RESULT_VARIABLE status ERROR_QUIET)
if(status EQUAL 0)
  message(SEND_ERROR "a folder without sources passed")
endif()
