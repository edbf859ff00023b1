# What "cmake --install" puts where, and the Debian package made of it.
#
# The program looks for its images in velmora.files/svg below the working directory, below /usr/local/games and
# below /usr/games, in this order. So program and images share <prefix>/games, and the prefix is one of two.
set(VELMORA_GAMES_DIR games)
set(VELMORA_PREFIXES /usr/local /usr)
if(NOT CMAKE_INSTALL_PREFIX IN_LIST VELMORA_PREFIXES)
    message(NOTICE "Installed below ${CMAKE_INSTALL_PREFIX}, the program finds its images only when it is started "
        "in ${CMAKE_INSTALL_PREFIX}/${VELMORA_GAMES_DIR}: the prefixes it knows are /usr/local and /usr.")
endif()

find_program(VELMORA_GZIP gzip REQUIRED)
find_program(VELMORA_RSVG_CONVERT rsvg-convert)

# velmora_install_compressed(<source> <destination> <name>): installs a copy that gzip has compressed, without the
# date of the build in it.
function(velmora_install_compressed source destination name)
    set(compressed "${PROJECT_BINARY_DIR}/install/${name}.gz")
    add_custom_command(OUTPUT "${compressed}"
        COMMAND ${VELMORA_GZIP} -9nc "${source}" > "${compressed}"
        DEPENDS "${source}" VERBATIM)
    set_property(GLOBAL APPEND PROPERTY VELMORA_INSTALL_FILES "${compressed}")
    install(FILES "${compressed}" DESTINATION ${destination})
endfunction()

# velmora_install_icon(<size>): draws the icon at one size and installs it. Drawn in the build and not kept as
# pictures, because the one drawing then stays the only source.
function(velmora_install_icon size)
    set(drawing "${PROJECT_SOURCE_DIR}/data/icons/velmora.svg")
    set(icon "${PROJECT_BINARY_DIR}/install/icons/${size}x${size}/velmora.png")
    cmake_path(GET icon PARENT_PATH directory)
    file(MAKE_DIRECTORY "${directory}")
    add_custom_command(OUTPUT "${icon}"
        COMMAND ${VELMORA_RSVG_CONVERT} -w ${size} -h ${size} -o "${icon}" "${drawing}"
        DEPENDS "${drawing}" VERBATIM)
    set_property(GLOBAL APPEND PROPERTY VELMORA_INSTALL_FILES "${icon}")
    install(FILES "${icon}" DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endfunction()

set(VELMORA_PROGRAMS velmora-console velmora-collection velmora-match)
velmora_install_compressed("${PROJECT_SOURCE_DIR}/data/man/velmora-console.6"
    ${CMAKE_INSTALL_MANDIR}/man6 velmora-console.6)
velmora_install_compressed("${PROJECT_SOURCE_DIR}/data/man/velmora-collection.1"
    ${CMAKE_INSTALL_MANDIR}/man1 velmora-collection.1)
velmora_install_compressed("${PROJECT_SOURCE_DIR}/data/man/velmora-match.1"
    ${CMAKE_INSTALL_MANDIR}/man1 velmora-match.1)
install(FILES "${PROJECT_SOURCE_DIR}/data/completion/velmora-match"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
if(VELMORA_GUI)
    list(APPEND VELMORA_PROGRAMS velmora)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/velmora.files" DESTINATION ${VELMORA_GAMES_DIR}
        FILES_MATCHING PATTERN "*.svg")
    install(FILES "${PROJECT_SOURCE_DIR}/data/velmora.desktop" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES "${PROJECT_SOURCE_DIR}/data/org.velmora.velmora.metainfo.xml"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES "${PROJECT_SOURCE_DIR}/data/mime/velmora.xml" DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES "${PROJECT_SOURCE_DIR}/data/icons/velmora.svg"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    velmora_install_compressed("${PROJECT_SOURCE_DIR}/data/man/velmora.6" ${CMAKE_INSTALL_MANDIR}/man6 velmora.6)
    if(VELMORA_RSVG_CONVERT)
        foreach(size 16 22 24 32 48 64 128 256)
            velmora_install_icon(${size})
        endforeach()
    else()
        message(NOTICE "rsvg-convert (Debian package librsvg2-bin) is missing: only the scalable icon is installed.")
    endif()
endif()
install(TARGETS ${VELMORA_PROGRAMS} RUNTIME DESTINATION ${VELMORA_GAMES_DIR})
install(FILES "${PROJECT_SOURCE_DIR}/data/debian/copyright" DESTINATION ${CMAKE_INSTALL_DOCDIR})
velmora_install_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" ${CMAKE_INSTALL_DOCDIR} CHANGELOG.md)
velmora_install_compressed("${PROJECT_SOURCE_DIR}/data/debian/changelog" ${CMAKE_INSTALL_DOCDIR} changelog)

# All that an installation needs from the build, and nothing of the tests.
get_property(install_files GLOBAL PROPERTY VELMORA_INSTALL_FILES)
add_custom_target(velmora_installed ALL DEPENDS ${install_files})
add_dependencies(velmora_installed ${VELMORA_PROGRAMS})

install(SCRIPT "${PROJECT_SOURCE_DIR}/cmake/RenewDesktopDatabases.cmake")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_CONTACT "The Velmora developers <developers@velmora.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "graphical chess board for games, analysis and engine tournaments")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"One person plays on a graphical board against a chess engine or against
another person, sets up positions, lets an engine analyse, drills openings
against a Polyglot book, and runs matches, gauntlets and round robins between
engines. Games are read and written as PGN, positions as FEN and EPD.
.
Engines are programs of their own that speak UCI or xboard.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no link shows: the loader of the images, a font that has the chess pieces, and the icons of the dialogs.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "librsvg2-common, fonts-dejavu-core | fonts-freefont-ttf, adwaita-icon-theme, hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS stockfish)
include(CPack)
