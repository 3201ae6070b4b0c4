# `cpack` (or `cmake --build <dir> --target package`) makes one Debian package of everything the
# project installs: the shared libraries with their SONAME links, the headers, the CMake package, the
# .pc file and zqjson, under /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zorbaldata-json)
set(CPACK_PACKAGE_VENDOR "zorbaldata-json")
set(CPACK_PACKAGE_CONTACT "zorbaldata-json developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Conversion between JSON and ZORBAL Data Arrays")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
# Written by hand rather than by dpkg-shlibdeps, which needs dpkg-dev; Boost's headers are named
# because the CMake package looks for them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6 (>= 12), libboost-dev (>= 1.74)")
include(CPack)
