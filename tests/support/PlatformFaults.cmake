# Plants one fault after the other and fails if the check of platform files lets it pass, or if it stops a sound source:
# cmake -D CHECK=<the check> -D FOLDER=<scratch> -P.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${FOLDER})
file(STRINGS ${CHECK} platform_files REGEX "^  [a-z]+/.*(Posix|Xdg)[.](cpp|h)$")
foreach(file IN LISTS platform_files)
  string(STRIP "${file}" file)
  file(WRITE ${FOLDER}/${file} "#include <unistd.h>\n")
endforeach()

function(try name text wanted)
  file(WRITE ${FOLDER}/${name} "${text}\n")
  execute_process(COMMAND ${CMAKE_COMMAND} -D SOURCE=${FOLDER} -P ${CHECK} RESULT_VARIABLE status ERROR_VARIABLE error)
  file(REMOVE ${FOLDER}/${name})
  if(wanted STREQUAL "stops" AND (status EQUAL 0 OR NOT error MATCHES "alone:"))
    message(SEND_ERROR "not found: ${text}")
  elseif(wanted STREQUAL "passes" AND NOT status EQUAL 0)
    message(SEND_ERROR "stopped: ${text}${error}")
  endif()
endfunction()

foreach(fault IN ITEMS
    "#include <unistd.h>" " # include \"sys/stat.h\"" "#include <glob.h>" "#include <csignal>" "  if (::kill(1, 9) == 0) {"
    "  FILE* pipe = popen(command, mode)" "  return mkstemp(name)" "  std::system(command)" "  auto p = realpath(a, b)"
    "  setenv(a, b, 1)" "(setenv(a, b, 1))" "#ifdef __linux__" "#if defined(_WIN32)" "#ifdef Q_OS_UNIX"
    "  Read(\"/proc/self/maps\")" "  const char* folder = \"/run/user\"" "  std::getenv(\"XDG_DATA_HOME\")"
    "extern char** environ\;" "#include <filesystem>" "#include <fstream>" "  std::filesystem::remove(name)"
    "  Open(path.string())")
  try(src/core/Fault.cpp "${fault}" stops)
endforeach()
foreach(file IN ITEMS src/files/FileTree.cpp tests/core/Fault.cpp)
  try(${file} "  return fs::path(name)" stops)
endforeach()
try(tests/core/Sound.cpp "#include <filesystem>" passes)
try(src/core/OtherPosix.cpp "#include <unistd.h>" stops)
try(desktop/core/Fault.hpp "#include <unistd.h>" stops)
foreach(sound IN ITEMS
    "#include <string>" "  process->kill()" "  file.open(QIODevice::ReadOnly)" "void HelpFile::open(int mode) {"
    "  const auto file = HelpFile::Open(name)" "  // the system (of units)" "  std::getenv(\"PATH\")" "  text.access()" "  text.string_view()")
  try(src/core/Sound.cpp "${sound}" passes)
endforeach()
file(REMOVE ${FOLDER}/src/files/PlatformFilePosix.cpp)
execute_process(COMMAND ${CMAKE_COMMAND} -D SOURCE=${FOLDER} -P ${CHECK} RESULT_VARIABLE status ERROR_QUIET)
if(status EQUAL 0)
  message(SEND_ERROR "a platform file that is gone was not missed")
endif()
