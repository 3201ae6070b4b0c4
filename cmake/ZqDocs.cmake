# The API reference. zq_add_docs(<target>): a `docs` target that runs Doxygen over the public headers of
# <target> into <build>/docs/html, and, when the tests are built, a test that fails on any Doxygen
# warning about them. Nothing happens where Doxygen is not installed.
function(zq_add_docs target)
  find_package(Doxygen QUIET)
  if(NOT DOXYGEN_FOUND)
    return()
  endif()
  get_target_property(headers ${target} HEADER_SET)
  get_target_property(roots ${target} HEADER_DIRS)
  list(TRANSFORM headers PREPEND ${PROJECT_SOURCE_DIR}/ REGEX "^[^/]")
  list(JOIN headers " " ZQ_DOCS_INPUT)
  list(JOIN roots " " ZQ_DOCS_STRIP)

  set(ZQ_DOCS_OUTPUT ${PROJECT_BINARY_DIR}/docs)
  set(ZQ_DOCS_WARN_AS_ERROR NO)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/docs/Doxyfile @ONLY)
  add_custom_target(docs
    COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/docs/Doxyfile
    COMMENT "API reference in ${ZQ_DOCS_OUTPUT}/html"
    VERBATIM)

  if(ZQ_TESTS)
    # A separate output, so the test neither needs nor disturbs what `docs` built.
    set(ZQ_DOCS_OUTPUT ${PROJECT_BINARY_DIR}/docs-check)
    set(ZQ_DOCS_WARN_AS_ERROR FAIL_ON_WARNINGS)
    configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/docs/Doxyfile-check @ONLY)
    file(MAKE_DIRECTORY ${ZQ_DOCS_OUTPUT})
    add_test(NAME ApiReferenceWithoutWarnings
      COMMAND ${DOXYGEN_EXECUTABLE} ${PROJECT_BINARY_DIR}/docs/Doxyfile-check)
  endif()
endfunction()
