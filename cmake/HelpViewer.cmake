# The help viewer, the user manual and the manifest that makes the viewer the
# suite's help extension, laid out in the build folder as beside a program:
# Help/ and Extentions/ next to vellumdesk.
foreach(file Help/vellumdesk-manual.html Extentions/vellumdesk-help.ini)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/${file}
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/${file} ${CMAKE_BINARY_DIR}/${file}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file})
  list(APPEND VELLUMDESK_MANUAL_FILES ${CMAKE_BINARY_DIR}/${file})
endforeach()
add_custom_target(vellumdesk_manual ALL DEPENDS ${VELLUMDESK_MANUAL_FILES})

if(VELLUMDESK_GUI)
  add_executable(vellumdesk-help ${CMAKE_SOURCE_DIR}/src/helpviewer/main.cpp)
  target_link_libraries(vellumdesk-help PRIVATE Qt6::Widgets)
  add_dependencies(vellumdesk-help vellumdesk_manual)
endif()
