# `make deb`: a Debian package of what `cmake --install` puts in place, under /usr. The
# libraries it links are found by dpkg-shlibdeps; the modules and plugins it loads at run time
# are those of packaging/runtime-packages.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tidewell)
set(CPACK_PACKAGE_CONTACT "Tidewell developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
  "Project folders on a shelf at the top centre of the screen, and the tide command")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/runtime-packages runtime_lines REGEX "^[^#]")
string(REGEX REPLACE "[ ;]+" ", " CPACK_DEBIAN_PACKAGE_DEPENDS "${runtime_lines}")
include(CPack)
