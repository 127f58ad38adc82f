# The core library must stay free of Qt, GLib, curl and libcanberra: everything that needs
# them lives in vellumdesk_platform or vellumdesk_gui. This check fails the
# configure step if a link to one of them ever creeps into the core target.
function(vellumdesk_check_core_links target)
  get_target_property(links ${target} LINK_LIBRARIES)
  get_target_property(ilinks ${target} INTERFACE_LINK_LIBRARIES)
  foreach(lib IN LISTS links ilinks)
    if(lib MATCHES "(^|::|[/-])(Qt|qt|glib|gio|gobject|GIO|GLib|curl|CURL|canberra|CANBERRA)")
      message(FATAL_ERROR "${target} must not link ${lib}")
    endif()
  endforeach()
  # A source of the core that includes Qt, GLib or curl headers is the same fault.
  get_target_property(sources ${target} SOURCES)
  foreach(src IN LISTS sources)
    file(STRINGS ${src} bad REGEX "#include[ \t]*[<\"](Q[A-Za-z]+|glib|gio/|curl/|canberra)")
    if(bad)
      message(FATAL_ERROR "${src} is in ${target} but includes ${bad}")
    endif()
  endforeach()
endfunction()
