# What `cmake --install` puts where, by the GNU names of folders.
#
# Components: tarnwick is the program with all that belongs to it, licence its text (the Debian package has a
# file of its own for that), desktop_caches what tells a running desktop of it after an installation by hand.

include(GNUInstallDirs)

# Not CMAKE_INSTALL_DOCDIR, which would have the capital of the project's name.
set(TARNWICK_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/tarnwick)

set(TARNWICK_ZSH_COMPLETIONS_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    CACHE STRING "Where zsh looks for completions; vendor-completions for a Debian package")

# tarnwick_install(<folder> [RENAME <name>] <file>...)
function(tarnwick_install folder)
    install(FILES ${ARGN} DESTINATION ${folder} COMPONENT tarnwick)
endfunction()

install(TARGETS tarnwick-cli DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tarnwick)
tarnwick_install(${CMAKE_INSTALL_MANDIR}/man1 packaging/man/tarnwick-cli.1)
tarnwick_install(${CMAKE_INSTALL_MANDIR}/man5 packaging/man/tarnwick-cp.5)
tarnwick_install(${CMAKE_INSTALL_DATADIR}/tarnwick problems/sample_problems.cp
               problems/longest_wins.cp)
tarnwick_install(${TARNWICK_DOC_DIR} README.md)
tarnwick_install(${TARNWICK_DOC_DIR}/formats docs/formats/cp.md docs/formats/tmpReg.md)
tarnwick_install(${CMAKE_INSTALL_DATADIR}/mime/packages packaging/desktop/tarnwick.xml)
install(FILES LICENSE DESTINATION ${TARNWICK_DOC_DIR} COMPONENT licence)

# tarnwick_install_completions(<program>)
function(tarnwick_install_completions program)
    set(from ${PROJECT_SOURCE_DIR}/packaging/completions)
    tarnwick_install(${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        ${from}/${program}.bash RENAME ${program})
    tarnwick_install(${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d ${from}/${program}.fish)
    tarnwick_install(${TARNWICK_ZSH_COMPLETIONS_DIR} ${from}/_${program})
endfunction()

tarnwick_install_completions(tarnwick-cli)

if(TARGET tarnwick)
    install(TARGETS tarnwick DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tarnwick)
    tarnwick_install(${CMAKE_INSTALL_MANDIR}/man1 packaging/man/tarnwick.1)
    tarnwick_install(${CMAKE_INSTALL_DATADIR}/applications packaging/desktop/tarnwick.desktop)
    tarnwick_install(${CMAKE_INSTALL_DATADIR}/metainfo
        packaging/desktop/invalid.tarnwick.tarnwick.metainfo.xml)
    tarnwick_install_completions(tarnwick)
    add_subdirectory(packaging/icons)
endif()

# Desktops read these folders through caches, which a package manager renews by itself.
install(CODE [[
    if(NOT DEFINED ENV{DESTDIR})
        foreach(words "update-mime-database;mime" "update-desktop-database;applications")
            list(POP_FRONT words program folder)
            find_program(found_${program} ${program})
            if(found_${program})
                execute_process(COMMAND ${found_${program}} "${CMAKE_INSTALL_PREFIX}/share/${folder}"
                    OUTPUT_QUIET ERROR_QUIET)
            endif()
        endforeach()
    endif()
]] COMPONENT desktop_caches)
