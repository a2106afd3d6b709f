# German and Turkish locale data for the tests that show how the programs behave in them, made
# from the system's own sources (Debian's package "locales"). Sets TIDEWARDEN_TEST_LOCALES to the
# compile definition with their folder.
include_guard(GLOBAL)

set(locale_folder ${CMAKE_BINARY_DIR}/tests/locales)
find_program(LOCALEDEF localedef)
set(TIDEWARDEN_TEST_LOCALES "" CACHE INTERNAL "")
if(LOCALEDEF)
  file(MAKE_DIRECTORY ${locale_folder})
  set(locale_result 0)
  foreach(name de_DE.UTF-8 de_DE.ISO-8859-1 tr_TR.UTF-8)
    string(REGEX MATCH "^([^.]+)[.](.+)$" name ${name})
    if(NOT EXISTS ${locale_folder}/${name}/LC_TIME AND locale_result EQUAL 0)
      execute_process(
        COMMAND ${LOCALEDEF} -i ${CMAKE_MATCH_1} -f ${CMAKE_MATCH_2} ${locale_folder}/${name}
        RESULT_VARIABLE locale_result OUTPUT_QUIET ERROR_QUIET)
    endif()
  endforeach()
  if(locale_result EQUAL 0)
    set(TIDEWARDEN_TEST_LOCALES TIDEWARDEN_TEST_LOCALES="${locale_folder}" CACHE INTERNAL "")
  endif()
endif()
if(NOT TIDEWARDEN_TEST_LOCALES)
  message(FATAL_ERROR "The tests in German and Turkish need the sources of locale data: "
    "install the Debian package \"locales\".")
endif()
