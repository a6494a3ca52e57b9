# Flags that every target shares.
add_library(rostermill_flags INTERFACE)
target_compile_options(
  rostermill_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                             $<$<BOOL:${ROSTERMILL_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 gives false positives for std::string (GCC bug 105651).
  target_compile_options(rostermill_flags INTERFACE -Wno-restrict)
endif()
target_include_directories(rostermill_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(
  rostermill_flags INTERFACE ROSTERMILL_VERSION="${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

if(NOT ROSTERMILL_SANITIZE AND NOT ROSTERMILL_FUZZ)
  # Checked versions of the C library's functions, as Debian's packages have them.
  target_compile_options(
    rostermill_flags INTERFACE "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()

if(ROSTERMILL_SANITIZE)
  # -g1 keeps files and lines in reports and builds three times as fast as -g.
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ROSTERMILL_FUZZ)
  add_compile_options(-g1 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
