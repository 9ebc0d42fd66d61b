# Build all tests of cores, and all tests of windows.
add_custom_target(core_tests)
add_custom_target(screen_tests)

# run_as_test(<name> <command>...)
#
# Has ctest run a program, without a display and for ten minutes at most.
function(run_as_test name)
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 600
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# run_without_display(<target>)
#
# Where Qt is a part of the program, its platform without a display has to be, too.
function(run_without_display target)
  if(WIN32)
    qt_import_plugins(${target} INCLUDE Qt6::QOffscreenIntegrationPlugin)
  endif()
endfunction()

# add_project_test(<target> [QT [MAIN <source>]] SOURCES <sources>... LIBRARIES <targets>...)
#
# One test program, run by ctest in a shuffled order, so that no test can lean on the one before it. With QT its main
# function, in tests/support/Main.cpp unless another source is named, starts Qt without a display, and any warning of
# Qt's fails the running test. It has the label "screen" then. Without QT it is a test of a core, and has the label
# "core".
function(add_project_test target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "MAIN" "SOURCES;LIBRARIES")

  add_executable(${target} ${arg_SOURCES})
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  if(arg_QT)
    set(kind screen)
    if(NOT arg_MAIN)
      set(arg_MAIN "${PROJECT_SOURCE_DIR}/tests/support/Main.cpp")
    endif()
    target_sources(${target} PRIVATE "${arg_MAIN}")
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} numbrela_screen_test_support)
    run_without_display(${target})
  else()
    set(kind core)
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} numbrela_core_test_support GTest::gtest_main)
  endif()
  run_as_test(${target} ${target} --gtest_shuffle --gtest_brief=1)
  add_dependencies(${kind}_tests ${target})
  set_tests_properties(${target} PROPERTIES LABELS ${kind})
endfunction()
