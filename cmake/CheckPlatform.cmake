# Fails if a source outside the platform files needs a certain operating system, or if one takes file names to the
# standard library and back by itself: run with cmake -D SOURCE=<the repository> -P.
cmake_minimum_required(VERSION 3.25)

set(platform_files
  desktop/support/EndSignalsPosix.cpp
  solver/src/LargePagesPosix.cpp
  solver/src/ProgramFolderPosix.cpp
  solver/src/ResultFilePosix.cpp
  src/files/ChildProcessPosix.cpp
  src/files/DynamicLibraryPosix.cpp
  src/files/DescriptorPosix.h
  src/files/EndingSignalsPosix.cpp
  src/files/FileLockPosix.cpp
  src/files/FileReaderPosix.cpp
  src/files/FileReplacementPosix.cpp
  src/files/PlatformFilePosix.cpp
  src/services/FileAssociationXdg.cpp
  xls/LimitsPosix.cpp
)

# Those that use the standard library's paths. Names are UTF-8, which its own conversions are not everywhere.
set(path_files
  solver/src/Library.cpp
  solver/src/ProgramFolder.h
  solver/src/ResultFile.cpp
  solver/src/ResultFile.h
  src/core/FilePaths.h
  src/files/FileTree.cpp
)
set(path_uses "include[ \t]*<(filesystem|fstream)>|filesystem::")
set(path_conversions "(fs|filesystem)::(u8)?path[({]|[.>](generic_)?string[(][)]")

set(headers "aio|alloca|arpa/|csignal|dirent|dlfcn|endian|execinfo|fcntl|features|fnmatch|ftw|getopt|glob|grp|ifaddrs|\
langinfo|libgen|linux/|malloc|mntent|mqueue|netdb|netinet/|poll|pthread|pwd|sched|semaphore|signal|spawn|strings|sys/|\
syslog|termios|ucontext|unistd|utime|windows|winsock|wordexp")
set(calls "access|chdir|chmod|chown|close|dlopen|dlsym|dup|dup2|execl[a-z]*|execv[a-z]*|fdopen|fileno|fork|fsync|getcwd|\
getpid|getuid|gmtime_r|isatty|kill|link|localtime_r|lstat|mkdtemp|mkfifo|mkstemp|mmap|nanosleep|open|openat|pclose|pipe|\
pipe2|popen|posix_[a-z_]*|putenv|readlink|realpath|setenv|stat|strcasecmp|strncasecmp|symlink|sysconf|system|umask|\
unlink|unsetenv|usleep|waitpid")
set(patterns
  "^[ \t]*#[ \t]*include[ \t]*[<\"](${headers})"
  "(^|[^A-Za-z0-9_.>:])(::|std::)(${calls})[(]"  # with its name space: names without one are also members
  "(^|return|[=(,;!&|?])[ \t]*(execl[a-z]*|execv[a-z]*|fork|getpid|mkdtemp|mkstemp|popen|readlink|realpath|setenv|\
system|unsetenv|usleep|waitpid)[(]"
  "\"/(bin|dev|etc|home|opt|proc|run|sys|tmp|usr|var)[/\"]"
  "__(linux|unix|gnu_linux|APPLE|FreeBSD)|_WIN32|_MSC_VER|Q_OS_"
  "environ[^a-zA-Z]|getenv[(]\"(HOME|USER|XDG_|TMPDIR)"
)

set(faults "")
set(found 0)

# Adds the lines of `source` that match to the faults.
function(forbid source pattern)
  file(STRINGS ${SOURCE}/${source} lines REGEX "${pattern}")
  foreach(line IN LISTS lines)
    list(APPEND faults "${source}: ${line}")
  endforeach()
  set(faults ${faults} PARENT_SCOPE)
endfunction()

# Lists the sources of the folders that are named behind `out`.
function(list_sources out)
  set(globs "")
  foreach(folder IN LISTS ARGN)
    foreach(kind IN ITEMS c cc cpp cxx h hpp inl)
      list(APPEND globs ${SOURCE}/${folder}/*.${kind})
    endforeach()
  endforeach()
  file(GLOB_RECURSE sources RELATIVE ${SOURCE} ${globs})
  set(${out} ${sources} PARENT_SCOPE)
endfunction()

list_sources(product cli desktop solver src xls)
list_sources(beside bench fuzz tests)  # these are of this system, but names are UTF-8 there, too
foreach(source IN LISTS product beside)
  forbid(${source} "${path_conversions}")
endforeach()
foreach(source IN LISTS product)
  if(source IN_LIST platform_files)
    math(EXPR found "${found} + 1")
    continue()
  endif()
  if(NOT source IN_LIST path_files)
    forbid(${source} "${path_uses}")
  endif()
  foreach(pattern IN LISTS patterns)
    forbid(${source} "${pattern}")
  endforeach()
endforeach()

list(LENGTH platform_files all)
if(NOT found EQUAL all)
  message(FATAL_ERROR "${found} of ${all} platform files stand below ${SOURCE}")
endif()
if(faults)
  list(JOIN faults "\n" text)
  message(FATAL_ERROR "what stands in the platform files, or in FilePaths and FileTree, alone:\n${text}")
endif()
