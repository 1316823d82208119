# Copies the files of SOURCE into DEST, skipping files whose content is the same,
# so staged world files keep their times and the program does not rebuild its
# database after every build. Folders named in EXCLUDE are left out.
file(GLOB_RECURSE files RELATIVE "${SOURCE}" "${SOURCE}/*")
foreach(f IN LISTS files)
  set(skip FALSE)
  foreach(x IN LISTS EXCLUDE)
    if(f MATCHES "^${x}/")
      set(skip TRUE)
    endif()
  endforeach()
  if(NOT skip)
    get_filename_component(dir "${DEST}/${f}" DIRECTORY)
    file(MAKE_DIRECTORY "${dir}")
    file(COPY_FILE "${SOURCE}/${f}" "${DEST}/${f}" ONLY_IF_DIFFERENT)
  endif()
endforeach()
