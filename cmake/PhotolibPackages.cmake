# Debian packages: "cpack -G DEB" in a build folder that was configured with -DCMAKE_INSTALL_PREFIX=/usr.
#   libphotolib0     the library, named after its soname
#   libphotolib-dev  headers, the reference host, what CMake and pkg-config need, the examples
#   photolib         the command, its man page and completions
#   photolib-browser the desktop browser, where it is built

set(debian_revision 1)
set(debian_version ${PROJECT_VERSION}-${debian_revision})
set(library_package libphotolib${PROJECT_VERSION_MAJOR})
set(packages_library ${library_package})
set(packages_development libphotolib-dev)
set(packages_command photolib)
set(components library development command)
if(PHOTOLIB_BROWSER)
    set(packages_browser photolib-browser)
    list(APPEND components browser)
endif()

file(STRINGS packaging/debian/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^photolib \\(${debian_version}\\) ")
    message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${debian_version}: ${newest}")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS packaging/debian/changelog)
compress(packaging/debian/changelog changelog.Debian.gz)
compress(CHANGELOG.md changelog.gz)

# What only a package has, in a folder of its own for each.
foreach(component IN LISTS components)
    set(doc_folder ${CMAKE_INSTALL_DATADIR}/doc/${packages_${component}})
    install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian.gz ${PROJECT_BINARY_DIR}/changelog.gz
        DESTINATION ${doc_folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
    if(NOT component STREQUAL command) # that one's is there in every installation
        install(FILES LICENSE RENAME copyright DESTINATION ${doc_folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
    endif()
endforeach()
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libphotolib-dev
    COMPONENT development EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME photolib)
set(CPACK_PACKAGE_VENDOR "The photolib authors")
set(CPACK_PACKAGE_CONTACT "The photolib authors <photolib@photolib.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE photolib)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${debian_revision})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where dpkg-shlibdeps finds the library that the command needs; the package of that one is named below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/photolib)
# "=": while the version is 0.x, programs of one version may not run with the library of another.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")

# ldconfig is run by a trigger.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/TriggerInsteadOfScripts.cmake)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "library that reads the photo library of an iOS device
An application loads it to list the photos, albums, people, places, memories,
bursts and other groups of a connected device as the device itself sees them.
The application brings the way to reach the device.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libphotolib-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${debian_version}), qtbase5-dev (>= 5.15), libsqlite3-dev, libssl-dev")
if(PHOTOLIB_AFC)
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", libimobiledevice-dev, libusbmuxd-dev, libplist-dev")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake (>= 3.24) | pkg-config")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "photo library reader for iOS devices - development files
Headers, the reference host (devicehost) as a static archive, descriptions for
CMake and pkg-config, and example programs for libphotolib.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME photolib)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS "${library_package} (= ${debian_version})")
if(PHOTOLIB_AFC)
    set(CPACK_DEBIAN_COMMAND_PACKAGE_RECOMMENDS usbmuxd) # which finds the devices on USB
endif()
set(CPACK_COMPONENT_COMMAND_DESCRIPTION "command that shows the photo library of an iOS device
Lists the photos, albums and groups of a device's media folder, for people as
tables and for programs as JSON and CSV. Nothing is written to the device.")

set(CPACK_DEBIAN_BROWSER_PACKAGE_NAME photolib-browser)
set(CPACK_DEBIAN_BROWSER_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_BROWSER_PACKAGE_DEPENDS "${library_package} (= ${debian_version})")
# More kinds of pictures, and Qt's own texts in other languages.
set(CPACK_DEBIAN_BROWSER_PACKAGE_RECOMMENDS "qt5-image-formats-plugins, qttranslations5-l10n, libqt5svg5")
if(PHOTOLIB_AFC)
    string(APPEND CPACK_DEBIAN_BROWSER_PACKAGE_RECOMMENDS ", usbmuxd")
endif()
set(CPACK_COMPONENT_BROWSER_DESCRIPTION "desktop browser for the photo library of an iOS device
Shows the albums, people, places and photos of a phone on the cable, of a
folder or of a backup, and exports what is selected. Nothing is written to the
device.")

include(CPack)
