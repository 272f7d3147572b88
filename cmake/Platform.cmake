# The system that is built for: which of the platform files, named ...Posix.cpp and ...Xdg.cpp, it takes, and where
# programs look for the solver library.
if(UNIX AND NOT APPLE)
  set(KORVA_PLATFORM Posix)      # files, processes, memory
  set(KORVA_USER_DESKTOP Xdg)    # what a user's desktop is told
else()
  message(FATAL_ERROR "There are no platform files for ${CMAKE_SYSTEM_NAME} yet; docs/windows.md tells what they hold.")
endif()

# The library is the programs' own, so it lies in a folder of its own, by the kind of machine where the system does so.
set(KORVA_LIBRARY_FOLDER ${CMAKE_INSTALL_LIBDIR}/korva-strond)
if(CMAKE_LIBRARY_ARCHITECTURE AND NOT CMAKE_INSTALL_LIBDIR MATCHES "${CMAKE_LIBRARY_ARCHITECTURE}")
  set(KORVA_LIBRARY_FOLDER ${CMAKE_INSTALL_LIBDIR}/${CMAKE_LIBRARY_ARCHITECTURE}/korva-strond)
endif()
