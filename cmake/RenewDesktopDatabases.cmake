# The desktop learns of a new program, file type and icon from databases of its own. Run at the end of an
# installation into the system; a package manager renews them by itself, and a staged installation (DESTDIR, or
# another prefix) is none of the desktop's business.
cmake_minimum_required(VERSION 3.25)

set(share "${CMAKE_INSTALL_PREFIX}/share")
if(NOT "$ENV{DESTDIR}" STREQUAL "" OR NOT CMAKE_INSTALL_PREFIX MATCHES "^/usr(/local)?$")
    return()
endif()

# renew_database(<program> <argument>...): says so when it can't, since files then open with another program.
function(renew_database program)
    find_program(found_${program} ${program})
    if(NOT found_${program})
        message(STATUS "${program} is missing: the desktop may not see Velmora before its next start.")
        return()
    endif()
    execute_process(COMMAND "${found_${program}}" ${ARGN})
endfunction()

renew_database(update-mime-database "${share}/mime")
renew_database(update-desktop-database "${share}/applications")
renew_database(gtk-update-icon-cache -qtf "${share}/icons/hicolor")
