# What `cmake --install` puts under the prefix, in the usual GNU folders, and
# the Debian package CPack makes of the same files.
include(GNUInstallDirs)

# The programs a user runs. A new program is one more name here.
set(VELLUMDESK_PROGRAMS vellumdesk-cli vellumdesk vellumdesk-help)
foreach(program IN LISTS VELLUMDESK_PROGRAMS)
  if(TARGET ${program})
    target_compile_definitions(${program} PRIVATE VELLUMDESK_VERSION="${PROJECT_VERSION}")
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()

# The programs look for Help/ beside themselves, beside their folder, and
# here: share/vellumdesk/Help under the prefix.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/Help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vellumdesk/Help)
install(FILES ${CMAKE_SOURCE_DIR}/README.md ${CMAKE_SOURCE_DIR}/docs/ARCHITECTURE.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vellumdesk)

# An installed program has no Extentions/ beside it in bin/, so it finds the
# extensions beside its folder: PREFIX/Extentions. There the help viewer's
# manifest names the viewer by its path under the prefix.
if(TARGET vellumdesk-help)
  file(READ ${CMAKE_SOURCE_DIR}/Extentions/vellumdesk-help.ini help_manifest)
  string(REPLACE "executable=vellumdesk-help" "executable=${CMAKE_INSTALL_BINDIR}/vellumdesk-help"
    help_manifest "${help_manifest}")
  file(WRITE ${CMAKE_BINARY_DIR}/installed/Extentions/vellumdesk-help.ini "${help_manifest}")
  install(FILES ${CMAKE_BINARY_DIR}/installed/Extentions/vellumdesk-help.ini DESTINATION Extentions)
endif()

# The desktop entry, icons, AppStream data, manual pages and completion.
add_subdirectory(${CMAKE_SOURCE_DIR}/data ${CMAKE_BINARY_DIR}/data)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellumdesk)
set(CPACK_PACKAGE_VENDOR "Quillpost")
set(CPACK_PACKAGE_CONTACT "Vellumdesk developers <vellumdesk@quillpost.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "saved-message manager of the Quillpost mail-alert suite")
set(CPACK_PACKAGE_DESCRIPTION
  "Vellumdesk lists the saved messages of one mailbox folder in seven columns,\n\
sorts and filters that list, switches between mailboxes, deletes messages and\n\
opens a message in the user's own mail client. vellumdesk-cli runs the same\n\
core from scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION mail)
# The libraries the programs link, as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Documents and folders open through GIO, which needs the MIME database.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "bash-completion")
include(CPack)
