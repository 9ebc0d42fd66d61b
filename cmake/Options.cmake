# One interface target carries the language level, the warnings and the sanitizers for every target of the project.
add_library(numbrela_options INTERFACE)
target_compile_features(numbrela_options INTERFACE cxx_std_20)
target_include_directories(numbrela_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(numbrela_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    $<$<BOOL:${NUMBRELA_WARNINGS_AS_ERRORS}>:-Werror>>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> # GCC 12 finds overlaps in the library's own strings that are none
  $<$<CXX_COMPILER_ID:GNU>:-Wno-dangling-reference> # GCC 14 takes a found control for a part of the name it is found by
)
if(MINGW) # no other file than the program is needed, and the same sources make the same program
  target_compile_options(numbrela_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
  target_link_options(numbrela_options INTERFACE -static LINKER:--no-insert-timestamp,--gc-sections)
endif()
if(EMSCRIPTEN) # which catches no exception unless it is told to
  target_compile_options(numbrela_options INTERFACE -fexceptions)
endif()
if((NUMBRELA_SANITIZE OR NUMBRELA_COVERAGE) AND NOT CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang|AppleClang)$")
  message(FATAL_ERROR "GCC and clang alone have the sanitizers, and count what tests reach, by these options.")
endif()
if(NUMBRELA_FUZZ AND NOT CMAKE_CXX_COMPILER_ID MATCHES "^(Clang|AppleClang)$")
  message(FATAL_ERROR "Clang alone has libFuzzer.")
endif()
if(NUMBRELA_SANITIZE)
  target_compile_options(numbrela_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(numbrela_options INTERFACE -fsanitize=address,undefined)
endif()
if(NUMBRELA_COVERAGE)
  target_compile_options(numbrela_options INTERFACE --coverage)
  target_link_options(numbrela_options INTERFACE --coverage)
endif()
if(NUMBRELA_FUZZ)
  target_compile_options(numbrela_options INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(numbrela_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

# Coverage must also count inline functions that are never called, so the compiler has to keep them. The linker drops
# the ones from libraries again, because not all of those can be linked. Tests are built without this: their own lines
# are not counted.
add_library(numbrela_core_options INTERFACE)
if(NUMBRELA_COVERAGE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(numbrela_core_options INTERFACE -fkeep-inline-functions -ffunction-sections)
  target_link_options(numbrela_core_options INTERFACE -Wl,--gc-sections)
endif()

# The screens go without Qt's own keywords and without its implicit conversions from 8-bit text.
add_library(numbrela_qt_options INTERFACE)
target_link_libraries(numbrela_qt_options INTERFACE numbrela_options Qt6::Core Qt6::Gui Qt6::Widgets)
target_compile_definitions(numbrela_qt_options INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060200)
