# What is installed beside the programs, and the Debian package of it all: cpack, or scripts/package.
find_program(KORVA_GZIP gzip)
find_package(Git QUIET)

# Who answers for the package, and when it was last changed: as the last commit says.
if(GIT_FOUND AND NOT KORVA_MAINTAINER)
  execute_process(COMMAND ${GIT_EXECUTABLE} log -1 "--format=%an <%ae>"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE KORVA_MAINTAINER OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(GIT_FOUND)
  execute_process(COMMAND ${GIT_EXECUTABLE} log -1 "--format=%aD"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE KORVA_CHANGED OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()

set(docs ${CMAKE_INSTALL_DATADIR}/doc/korva-strond)
set(packed ${CMAKE_CURRENT_BINARY_DIR}/packed)

# Installs `source`, which further targets make, packed into `folder` under `name`.gz, without a date in it.
function(korva_install_packed source folder name)
  add_custom_command(OUTPUT ${packed}/${name}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${packed}
    COMMAND ${KORVA_GZIP} -9nc ${source} > ${packed}/${name}.gz
    DEPENDS ${source} ${ARGN} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY KORVA_PACKED ${packed}/${name}.gz)
  install(FILES ${packed}/${name}.gz DESTINATION ${folder})
endfunction()

if(KORVA_GZIP)
  configure_file(packaging/changelog.in changelog.debian @ONLY)
  korva_install_packed(${CMAKE_CURRENT_BINARY_DIR}/cli/words/korva.man ${CMAKE_INSTALL_MANDIR}/man1 korva.1
    korva_words)
  korva_install_packed(${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md ${docs} NEWS)
  korva_install_packed(${CMAKE_CURRENT_BINARY_DIR}/changelog.debian ${docs} changelog)
  if(KORVA_DESKTOP)
    korva_install_packed(${CMAKE_CURRENT_SOURCE_DIR}/packaging/korva-strond.1 ${CMAKE_INSTALL_MANDIR}/man1 korva-strond.1)
  endif()
  get_property(files GLOBAL PROPERTY KORVA_PACKED)
  add_custom_target(korva_packed ALL DEPENDS ${files})
endif()

install(FILES packaging/copyright DESTINATION ${docs})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/cli/words/korva.bash RENAME korva
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/cli/words/korva.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
if(KORVA_DESKTOP)
  install(FILES packaging/korva-strond.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/korva-strond.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
  install(FILES packaging/korva-strond.metainfo.xml RENAME example.korva_strond.KorvaStrond.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

# All that is installed, without tests and benchmarks.
add_custom_target(korva_package DEPENDS korva korva-xls korvastrond korvaformats korva_words)
foreach(part IN ITEMS korva-strond korvafetch korva_docs korva_packed)
  if(TARGET ${part})
    add_dependencies(korva_package ${part})
  endif()
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korva-strond)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${KORVA_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "stability of coal pillars in room-and-pillar retreat mining")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_CURRENT_SOURCE_DIR}/packaging/description.txt)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# One package of all but what is for building other programs.
set(CPACK_COMPONENTS_ALL Unspecified)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries that the programs are linked with are found by the packager; what they load by name is not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(KORVA_DESKTOP)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "ca-certificates, fonts-dejavu-core, fonts-liberation, libqt6svg6, libqt6sql6-sqlite")
endif()
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info, desktop-file-utils, xdg-utils")
include(CPack)
