# The fuzz build (-DVELLUMDESK_FUZZ=ON, configured with CC=clang CXX=clang++):
# the core library under libFuzzer's coverage, AddressSanitizer and
# UndefinedBehaviorSanitizer, and the fuzz targets of tests/fuzz in place of
# the other tests. No desktop program: nothing of Qt is fuzzed.
if(NOT VELLUMDESK_FUZZ)
  return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  message(FATAL_ERROR "VELLUMDESK_FUZZ needs clang and its libFuzzer: configure with CC=clang CXX=clang++")
endif()
set(VELLUMDESK_GUI OFF)
# Any finding stops the run, so libFuzzer keeps the input that caused it.
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
