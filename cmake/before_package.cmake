# Run by CPack on the staged tree before it makes the package.

# Without these, CPack makes a package without dependencies, or fails without saying why.
foreach(tool file dpkg-shlibdeps)
  find_program(found_${tool} ${tool})
  if(NOT found_${tool})
    message(FATAL_ERROR "${tool} is missing: apt-get install file dpkg-dev")
  endif()
endforeach()

# Makes directories readable, whatever the umask of the build.
file(GLOB_RECURSE directories LIST_DIRECTORIES true "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(directory ${directories})
  if(IS_DIRECTORY ${directory} AND NOT IS_SYMLINK ${directory})
    file(CHMOD ${directory} PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
  endif()
endforeach()
