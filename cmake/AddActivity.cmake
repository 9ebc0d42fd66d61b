# add_activity(<name> CORE <sources>... SCREEN <sources>... CORE_TESTS <sources>... SCREEN_TESTS <sources>...)
#
# Makes numbrela_<name>_core (standard library alone: it sees no Qt header), numbrela_<name>_screen, and their tests.
# A target that needs all activities links numbrela_activity_cores or numbrela_activity_screens. It may be defined before
# the activities.
add_library(numbrela_activity_cores INTERFACE)
add_library(numbrela_activity_screens INTERFACE)

function(add_activity name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "CORE;SCREEN;CORE_TESTS;SCREEN_TESTS")

  add_library(numbrela_${name}_core STATIC ${arg_CORE})
  target_link_libraries(numbrela_${name}_core PUBLIC numbrela_core PRIVATE numbrela_core_options)

  add_library(numbrela_${name}_screen STATIC ${arg_SCREEN})
  set_target_properties(numbrela_${name}_screen PROPERTIES AUTOMOC ON)
  target_link_libraries(numbrela_${name}_screen PUBLIC numbrela_${name}_core numbrela_screen)

  target_link_libraries(numbrela_activity_cores INTERFACE numbrela_${name}_core)
  target_link_libraries(numbrela_activity_screens INTERFACE numbrela_${name}_screen)

  if(NUMBRELA_TESTS)
    add_project_test(numbrela_${name}_core_tests SOURCES ${arg_CORE_TESTS} LIBRARIES numbrela_${name}_core)
    add_project_test(numbrela_${name}_screen_tests QT SOURCES ${arg_SCREEN_TESTS} LIBRARIES numbrela_${name}_screen)
  endif()
endfunction()
