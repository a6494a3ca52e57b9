# Installation and the Debian package. The program looks for its data files in its own folder, so
# everything is installed into one folder, with links to the programs in the path.
include(GNUInstallDirs)

set(ROSTERMILL_HOMEPAGE "https://rostermill.example" CACHE STRING
    "The homepage shown in the AppStream metadata and the package")
set(home lib/rostermill)
set(app_id org.rostermill.rostermill)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(staged ${PROJECT_BINARY_DIR}/packaging)

# The first heading of CHANGELOG.md gives the version and date of the release.
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md headings REGEX "^## ")
list(GET headings 0 heading)
if(NOT heading MATCHES "^## ([0-9.]+) \\(([0-9-]+)\\)$" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md should begin with version ${PROJECT_VERSION}: ${heading}")
endif()
set(ROSTERMILL_RELEASE_DATE ${CMAKE_MATCH_2})

# Installs a program into the folder, and a link to it in the path.
function(rostermill_install_program target)
  install(TARGETS ${target} RUNTIME DESTINATION ${home})
  target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now)
  file(MAKE_DIRECTORY ${staged})
  file(CREATE_LINK ../${home}/${target} ${staged}/${target} SYMBOLIC)
  install(FILES ${staged}/${target} DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# Compresses a text and installs it, as Debian requires for man pages and changelogs.
find_program(GZIP_PROGRAM gzip REQUIRED)
function(rostermill_install_compressed text destination)
  get_filename_component(name ${text} NAME)
  add_custom_command(
    OUTPUT ${staged}/${name}.gz
    COMMAND ${GZIP_PROGRAM} -9nc ${text} > ${staged}/${name}.gz
    DEPENDS ${text}
    VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${staged}/${name}.gz)
  install(FILES ${staged}/${name}.gz DESTINATION ${destination})
endfunction()

rostermill_install_program(rostermill)
rostermill_install_compressed(${packaging}/rostermill.1 ${CMAKE_INSTALL_MANDIR}/man1)
if(TARGET rsmtool)
  rostermill_install_program(rsmtool)
  if(EXISTS ${PROJECT_SOURCE_DIR}/tools/rsmtool/rsmtool.1)
    rostermill_install_compressed(
      ${PROJECT_SOURCE_DIR}/tools/rsmtool/rsmtool.1 ${CMAKE_INSTALL_MANDIR}/man1)
  endif()
endif()

set(program_folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
install(FILES ${program_folder}/colors.txt DESTINATION ${home})
# The original; the copy in the program's folder may have been edited.
install(FILES ${SAMPLE_IMAGE} DESTINATION ${home})
install(DIRECTORY ${program_folder}/faces DESTINATION ${home})
install(
  DIRECTORY ${program_folder}/
  DESTINATION ${home}
  FILES_MATCHING
  REGEX "/[rp][1-4]-[0-7]\\.bmp$"
  PATTERN "faces" EXCLUDE)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 24 32 48 64 128 256)
  install(
    FILES ${PROJECT_SOURCE_DIR}/data/icons/rostermill-${size}.png
    DESTINATION ${icons}/${size}x${size}/apps
    RENAME rostermill.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/data/icons/rostermill.svg DESTINATION ${icons}/scalable/apps)

install(FILES ${packaging}/${app_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${packaging}/${app_id}.metainfo.xml.in ${staged}/${app_id}.metainfo.xml @ONLY)
install(FILES ${staged}/${app_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(doc ${CMAKE_INSTALL_DATADIR}/doc/rostermill)
install(FILES ${packaging}/copyright DESTINATION ${doc})
rostermill_install_compressed(${packaging}/changelog ${doc})
install(
  FILES ${packaging}/lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
  RENAME rostermill)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME rostermill)
set(CPACK_PACKAGE_VENDOR "the Rostermill authors")
set(CPACK_PACKAGE_CONTACT "the Rostermill authors <authors@rostermill.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${ROSTERMILL_HOMEPAGE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for an American football cartridge image")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Rostermill opens the cartridge image of an American football game with 28
teams on an 8-bit console, shows the league in it and saves your changes:
players, ratings and portraits, teams, colors and playbooks, the schedule, the
all-star rosters and the game's texts.

It comes with a sample league of invented teams and players.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/before_package.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The platform plugins are loaded at run time, so shlibdeps can't find them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
