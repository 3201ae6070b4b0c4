# Shared settings of the project's libraries and executables, applied per target.

set(ZQ_WARNINGS -Wall -Wextra -Wpedantic)
# Clang's extras that GCC's -Wall -Wextra either lacks or spells differently.
list(APPEND ZQ_WARNINGS $<$<CXX_COMPILER_ID:Clang>:-Wextra-semi -Wcomma -Wloop-analysis -Wunreachable-code
  -Wimplicit-fallthrough>)

# zq_add_library(<target> OUTPUT_NAME <name> INCLUDE_ROOTS <dir...> HEADERS <h...> SOURCES <s...>)
# A shared library with a SONAME, hidden symbols, its headers as an installable file set
# under its include roots, and an alias in the ZorbalDataJson:: namespace.
function(zq_add_library target)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "OUTPUT_NAME" "INCLUDE_ROOTS;HEADERS;SOURCES")
  add_library(${target} SHARED)
  add_library(ZorbalDataJson::${target} ALIAS ${target})
  target_sources(${target}
    PRIVATE ${ARG_SOURCES}
    PUBLIC FILE_SET HEADERS BASE_DIRS ${ARG_INCLUDE_ROOTS} FILES ${ARG_HEADERS})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE ${ZQ_WARNINGS})
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${ARG_OUTPUT_NAME}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH "$ORIGIN"
    EXPORT_NAME ${target})
endfunction()

# zq_add_test(<target> SOURCES <s...> LIBRARIES <l...>): one GoogleTest executable per component.
function(zq_add_test target)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES")
  add_executable(${target} ${ARG_SOURCES})
  target_compile_options(${target} PRIVATE ${ZQ_WARNINGS})
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} zq_test_support GTest::gtest GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60)
endfunction()
