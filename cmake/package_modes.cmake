# Run by CPack on the staged tree: directories are readable whatever the umask of the build.
file(GLOB_RECURSE directories LIST_DIRECTORIES true "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(directory ${directories})
  if(IS_DIRECTORY ${directory} AND NOT IS_SYMLINK ${directory})
    file(CHMOD ${directory} PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
  endif()
endforeach()
