# add_activity(<name> CORE <sources>... SCREEN <sources>... [CORE_TESTS <sources>...] [SCREEN_TESTS <sources>...])
#
# Makes numbrela_<name>_core (standard library alone: it sees no Qt header), numbrela_<name>_screen, and their tests.
# Their names are added to the global properties ACTIVITY_CORES and ACTIVITY_SCREENS, for programs of the whole.
function(add_activity name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "CORE;SCREEN;CORE_TESTS;SCREEN_TESTS")

  add_library(numbrela_${name}_core STATIC ${arg_CORE})
  target_link_libraries(numbrela_${name}_core PUBLIC numbrela_core PRIVATE numbrela_core_options)

  add_library(numbrela_${name}_screen STATIC ${arg_SCREEN})
  target_link_libraries(numbrela_${name}_screen PUBLIC numbrela_${name}_core numbrela_screen)

  set_property(GLOBAL APPEND PROPERTY ACTIVITY_CORES numbrela_${name}_core)
  set_property(GLOBAL APPEND PROPERTY ACTIVITY_SCREENS numbrela_${name}_screen)

  if(NUMBRELA_TESTS)
    add_dependencies(core_tests numbrela_${name}_core)
    if(arg_CORE_TESTS)
      add_project_test(numbrela_${name}_core_tests SOURCES ${arg_CORE_TESTS} LIBRARIES numbrela_${name}_core)
    endif()
    if(arg_SCREEN_TESTS)
      add_project_test(numbrela_${name}_screen_tests QT SOURCES ${arg_SCREEN_TESTS}
        LIBRARIES numbrela_${name}_screen)
    endif()
  endif()
endfunction()
