# What is installed besides the targets and their headers: the description of the package for CMake and pkg-config, the
# man page, the shell completions and the licence.

include(CMakePackageConfigHelpers)

set(QT_MINIMUM 5.15)
set(devicehost_requires "Qt5Core >= ${QT_MINIMUM}" sqlite3 libcrypto)
if(PHOTOLIB_AFC)
    string(JOIN " " PHOTOLIB_USB_MODULES ${usb_modules})
    list(TRANSFORM usb_modules REPLACE ">=" " >= ")
    list(APPEND devicehost_requires ${usb_modules})
endif()
string(JOIN ", " devicehost_requires ${devicehost_requires})
set(cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/photolib)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/photolibConfig.cmake.in
    ${PROJECT_BINARY_DIR}/photolibConfig.cmake INSTALL_DESTINATION ${cmake_folder})
# While the version is 0.x, a minor version may change the binary interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/photolibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/photolibConfig.cmake ${PROJECT_BINARY_DIR}/photolibConfigVersion.cmake
    DESTINATION ${cmake_folder} COMPONENT development)
install(EXPORT photolibTargets NAMESPACE photolib:: DESTINATION ${cmake_folder} COMPONENT development)

# The prefix is found from the place of the .pc file, so that an installation can be moved.
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH prefix_from_pkgconfig /prefix/${pkgconfig_folder} /prefix)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
get_property(devicehost_libs GLOBAL PROPERTY PHOTOLIB_DEVICEHOST_LIBS)
foreach(package photolib photolib-devicehost)
    configure_file(packaging/pkgconfig/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${pkgconfig_folder} COMPONENT development)
endforeach()

# compress(SOURCE NAME): SOURCE as NAME, compressed, in the build folder; the same bytes for the same source.
find_program(GZIP gzip REQUIRED)
function(compress source name)
    add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/${name}
        COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/${source} > ${PROJECT_BINARY_DIR}/${name}
        DEPENDS ${PROJECT_SOURCE_DIR}/${source} VERBATIM)
    string(MAKE_C_IDENTIFIER ${name} target)
    add_custom_target(compress_${target} ALL DEPENDS ${PROJECT_BINARY_DIR}/${name})
endfunction()

compress(docs/man/photolib.1 photolib.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/photolib.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT command)
install(FILES LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT command)

if(PHOTOLIB_BROWSER)
    compress(docs/man/photolib-browser.1 photolib-browser.1.gz)
    install(FILES ${PROJECT_BINARY_DIR}/photolib-browser.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT browser)
    set(desktop_folder ${PROJECT_SOURCE_DIR}/apps/browser/desktop)
    install(FILES ${desktop_folder}/photolib-browser.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT browser)
    install(FILES ${desktop_folder}/photolib-browser.metainfo.xml RENAME io.photolib.browser.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT browser)
    install(FILES ${desktop_folder}/photolib-browser.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT browser)
    install(FILES ${desktop_folder}/photolib-browser.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/128x128/apps COMPONENT browser)
endif()

# Debian's zsh reads the completions of its packages from a folder of their own.
set(zsh_folder site-functions)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version)
    set(zsh_folder vendor-completions)
endif()
set(PHOTOLIB_ZSH_COMPLETIONS ${CMAKE_INSTALL_DATADIR}/zsh/${zsh_folder} CACHE STRING "Folder of zsh's completions")
install(FILES apps/cli/completions/photolib.bash RENAME photolib
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT command)
install(FILES apps/cli/completions/_photolib DESTINATION ${PHOTOLIB_ZSH_COMPLETIONS} COMPONENT command)
install(FILES apps/cli/completions/photolib.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT command)
