# Debian packages of the installed tree (cpack -G DEB in the build folder):
#   libmp-mainwindow1     the library, the host platform and engine, the two
#                         libraries opened by name, the translations
#   libmp-mainwindow-dev  headers, CMake package, pkg-config file
#   mediaplayer-tools     the programs and the desktop entry
# Dependencies on Debian's libraries come from dpkg-shlibdeps.

set(MP_PACKAGE_MAINTAINER "Media Player developers <mediaplayer@example.org>"
  CACHE STRING "The maintainer the Debian packages name")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME mediaplayer)
set(CPACK_PACKAGE_VENDOR "The Media Player developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${MP_PACKAGE_MAINTAINER})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Runtime Development Tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The programs' own libraries lie in the runtime package's staging folder
# (that dependency is the component's, below).
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/Linux/DEB/${CPACK_PACKAGE_FILE_NAME}/Runtime${CPACK_PACKAGING_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libmp-mainwindow${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# A shlibs file for the libraries with a SONAME (only the runtime package
# has any), and the ldconfig trigger.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/debian/triggers)
# The engine's media output decodes through Qt Multimedia's GStreamer back end,
# which opens its decoders as plug-ins: no link dependency names them.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "media player main-window library
The main-window library of a phone's media player, with the host platform
and the host playback engine that let it run on Linux, the setup and
address-book libraries that it opens by name, and its translations.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmp-mainwindow-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "media player main-window library (development files)
Headers of the library's entry points, its folder list and the platform
interfaces a port provides; the CMake package MediaPlayerMainWindow and
the pkg-config module mediaplayer-mainwindow.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME mediaplayer-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION sound)
set(CPACK_COMPONENT_TOOLS_DEPENDS Runtime)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "media player for Linux and its tools
The host application mediaplayer, which runs the media player's main-window
library on a Linux desktop, with its desktop entry; mp-scan (builds the
media database), mp-samplegen (a sample library), qcop (the player's
channels from a shell) and mp-mpris (the desktop's media controls).")

# Each package's copyright and changelog.
foreach(component Runtime Development Tools)
  string(TOUPPER ${component} upper)
  set(MP_DEB_PACKAGE ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(doc_dir ${CMAKE_BINARY_DIR}/debian-doc/${MP_DEB_PACKAGE})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${doc_dir}/changelog @ONLY)
  execute_process(COMMAND gzip -9nf ${doc_dir}/changelog COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/debian/copyright ${doc_dir}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${MP_DEB_PACKAGE} COMPONENT ${component})
endforeach()

include(CPack)
