# Run by CPack before it makes a package of what was installed: moves /usr/etc to /etc.
if(EXISTS ${CPACK_TEMPORARY_DIRECTORY}/usr/etc)
  file(RENAME ${CPACK_TEMPORARY_DIRECTORY}/usr/etc ${CPACK_TEMPORARY_DIRECTORY}/etc)
endif()
