cmake_minimum_required(VERSION 3.25)
# Fails when a file of a lower library includes a header of a higher one.
# Run as: cmake -DSRC=<source tree's src folder> -P CheckLayers.cmake
#
# Each top folder of src/ has a rank; a file may include headers of its own
# rank or lower ranks only. Folders of one rank may include each other.
# A top folder missing from the table fails the check, so a new folder gets a
# place in the order before anything depends on it.
set(layer_foundation 0)
set(layer_controls 1)
set(layer_platform 2) # the interfaces and platform/linux, their implementations
set(layer_settings 3)
set(layer_inbox 4)
set(layer_rules 4)
set(layer_forwarding 4)
set(layer_search 4)
set(layer_plugins 4)
set(layer_script 5)
set(layer_gui 6) # Qt: above all of the core, below the programs
set(layer_cli 7)
set(layer_app 7)
set(layer_helpviewer 7) # a program of its own

# Known edges against the order, each a folder and the one header it may
# include: the settings object owns the plug-in catalogue and the rule lists
# and loads them with the folders, as the program always did. Each is a debt
# to pay by an interface that the higher layer fills; add none lightly.
set(allowed_upward
  "settings>plugins/PlugIns.h"
  "settings>rules/FilterCriteria.h"
  "settings>rules/RuleLists.h"
  "settings>rules/RuleRecord.h")

if(NOT SRC OR NOT IS_DIRECTORY "${SRC}")
  message(FATAL_ERROR "CheckLayers: pass -DSRC=<src folder>")
endif()

file(GLOB_RECURSE files RELATIVE "${SRC}" "${SRC}/*.h" "${SRC}/*.cpp")
set(faults "")
foreach(file IN LISTS files)
  string(REGEX MATCH "^[^/]+" top "${file}")
  if(NOT DEFINED layer_${top})
    string(APPEND faults "  ${file}: the folder src/${top} has no rank in cmake/CheckLayers.cmake\n")
    continue()
  endif()
  file(STRINGS "${SRC}/${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^[^\"]*\"([^\"]*)\".*$" "\\1" header "${line}")
    if(NOT header MATCHES "/")
      continue() # a header beside the file: the same folder
    endif()
    string(REGEX MATCH "^[^/]+" target "${header}")
    if(NOT DEFINED layer_${target})
      continue() # not a folder of src/ (a system or test header)
    endif()
    if(layer_${target} GREATER layer_${top} AND NOT "${top}>${header}" IN_LIST allowed_upward)
      string(APPEND faults "  ${file} includes ${header}: ${top} is below ${target}\n")
    endif()
  endforeach()
endforeach()

if(faults)
  message(FATAL_ERROR "A lower layer includes a higher one:\n${faults}"
    "Order, low to high: foundation < controls < platform < settings < "
    "inbox = rules = forwarding = search = plugins < script < gui < cli = app")
endif()
message(STATUS "Layers: every include of src/ points down or sideways")
