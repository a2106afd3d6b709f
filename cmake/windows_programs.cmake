# What each program gets on Windows: icon, version, manifest, and for those with windows the
# subsystem that opens no console. Programs that this build does not make are passed over.
enable_language(RC)
add_custom_target(windows-programs)

function(tidewarden_windows_program name description)
  if(NOT TARGET ${name})
    return()
  endif()
  set(TIDEWARDEN_FILE_NAME ${name})
  set(TIDEWARDEN_FILE_DESCRIPTION ${description})
  set(resources ${CMAKE_BINARY_DIR}/generated/${name}.rc)
  configure_file(packaging/windows/program.rc.in ${resources} @ONLY)
  set_property(SOURCE ${resources} PROPERTY OBJECT_DEPENDS
    "${CMAKE_SOURCE_DIR}/icons/tidewarden.ico;${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest")
  target_sources(${name} PRIVATE ${resources})
  add_dependencies(windows-programs ${name})
  if("GUI" IN_LIST ARGN)
    set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ON)
  endif()
endfunction()

tidewarden_windows_program(tidewarden "Tidewarden" GUI)
tidewarden_windows_program(customizer "Tidewarden Options" GUI)
tidewarden_windows_program(twdocs "Tidewarden Help" GUI)
tidewarden_windows_program(tidewarden-cli "Tidewarden at the command line")

# It tells its help and its topics without a screen.
if(TARGET twdocs)
  qt_import_plugins(twdocs INCLUDE Qt6::QOffscreenIntegrationPlugin)
endif()
