# `cpack -G DEB` makes the Debian package, from a build of the preset `package`; tools/make_package.sh does
# both. Elsewhere `cpack -G TGZ` gives an archive of what `cmake --install` would put in place.

# The changelog tells the version of the package, and must not be forgotten.
set(changelog ${PROJECT_SOURCE_DIR}/packaging/debian/changelog)
file(STRINGS ${changelog} first_line LIMIT_COUNT 1)
if(NOT first_line MATCHES "^tarnwick \\(([0-9.]+)-([0-9]+)\\) " OR
        NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
    message(FATAL_ERROR "${changelog} does not begin with version ${PROJECT_VERSION}")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})

set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR "Tarnwick developers")
set(CPACK_PACKAGE_CONTACT "Tarnwick developers <developers@tarnwick.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "solve and collect direct-mate chess problems")
set(CPACK_PACKAGE_DESCRIPTION
"Tarnwick answers one question exactly: can White force mate in n moves? A
mate that it names is a mate, and that there is none is said only when it is
proved. It is written for composers, solvers and lovers of the endgame.

Collections of problems are plain text files, with tags, variants and
comments. The window, in English, Polish and Ukrainian, and the command line
use the same engine, with as many threads as the machine has.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The section games would put the programs into /usr/games, which scripts do not search.
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")

# One package of what Debian wants: its own form of the licence, and its changelog.
foreach(file copyright changelog)
    install(FILES packaging/debian/${file} DESTINATION ${TARNWICK_DOC_DIR}
        COMPONENT debian EXCLUDE_FROM_ALL)
endforeach()
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package_options.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian_finish.cmake)
include(CPack)
