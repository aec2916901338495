# The Debian package, made by `cpack` from this build: see scripts/package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME bracken-lens)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find database tables that no source file names any more")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Bracken Lens lists the tables of a MySQL or MariaDB database, reads every
file below a folder of sources, and shows beside each table which files
name it. A table that no file names is a candidate for removal.
.
A table's rows and the files that name it can be looked at, the list can
be reported and exported, and a table can be dropped from the database.
.
bracken-scan makes the same search on a command line.")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The owner of Bracken Lens <owner@bracken-lens.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The theme that the icon lies in, and the plugin for Wayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, qt6-wayland")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# As a component, so that the list of what `uninstall` removes is left alone.
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};${PROJECT_NAME};Unspecified;/")
include(CPack)
