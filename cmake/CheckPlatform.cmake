# Fails if a source outside the platform files needs a certain operating system: run with
# cmake -D SOURCE=<the repository> -P.
cmake_minimum_required(VERSION 3.25)

set(system_headers "arpa/|dirent|dlfcn|fcntl|grp|linux/|netdb|netinet/|poll|pthread|pwd|sched|signal|spawn|sys/|termios|\
unistd|utime|windows|winsock")
set(faults "")
set(count 0)
set(platform_files 0)
foreach(folder IN ITEMS cli desktop solver src xls)
  file(GLOB_RECURSE sources RELATIVE ${SOURCE} ${SOURCE}/${folder}/*.h ${SOURCE}/${folder}/*.cpp)
  foreach(source IN LISTS sources)
    math(EXPR count "${count} + 1")
    if(source MATCHES "(Posix|Xdg)\\.cpp$")
      math(EXPR platform_files "${platform_files} + 1")
      continue()
    endif()
    file(STRINGS ${SOURCE}/${source} lines REGEX
      "^[ \t]*#[ \t]*include[ \t]*[<\"](${system_headers})|\"/(proc|dev|tmp|etc|usr)[/\"]|environ[^a-z]")
    foreach(line IN LISTS lines)
      list(APPEND faults "${source}: ${line}")
    endforeach()
  endforeach()
endforeach()

if(count EQUAL 0 OR platform_files EQUAL 0)
  message(FATAL_ERROR "no sources or no platform files below ${SOURCE}")
endif()
if(faults)
  list(JOIN faults "\n" text)
  message(FATAL_ERROR "outside the platform files:\n${text}")
endif()
