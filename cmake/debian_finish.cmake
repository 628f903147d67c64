# Run by cpack on the staged files before they are packed: what Debian wants of them beyond
# `cmake --install`. Without names and times in the compressed files, equal builds make equal packages.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

find_program(GZIP gzip REQUIRED)
find_program(STRIP strip REQUIRED)
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY})

file(GLOB_RECURSE pages ${root}/usr/share/man/* ${root}/*/usr/share/man/*)
file(GLOB_RECURSE changelogs ${root}/changelog)
foreach(file ${changelogs})
    file(RENAME ${file} ${file}.Debian)
    list(APPEND pages ${file}.Debian)
endforeach()
list(REMOVE_DUPLICATES pages)
execute_process(COMMAND ${GZIP} -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)

# Notes of the compiler, which stripping leaves.
file(GLOB_RECURSE programs ${root}/usr/bin/* ${root}/*/usr/bin/*)
list(REMOVE_DUPLICATES programs)
execute_process(COMMAND ${STRIP} --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)
