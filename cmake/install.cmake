# Where everything goes when Tidewarden is installed.
#
# The programs look for their skin, quotes, sound and for each other beside themselves, so they lie
# in a folder of their own with these files; what is on the search path are links to them.
include(GNUInstallDirs)

set(program_folder ${CMAKE_INSTALL_LIBEXECDIR}/tidewarden)
foreach(program tidewarden tidewarden-cli twdocs customizer)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${program_folder})
    list(APPEND installed_programs ${program})
  endif()
endforeach()
install(FILES skin/winaqua.skn DESTINATION ${program_folder})
install(FILES Quotes/Inspiration.txt DESTINATION ${program_folder}/Quotes)
install(FILES alarms/emergency.wav DESTINATION ${program_folder}/alarms)

if(UNIX)
  file(RELATIVE_PATH to_programs /p/${CMAKE_INSTALL_BINDIR} /p/${program_folder})
  foreach(program ${installed_programs})
    install(CODE "
      set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
      message(STATUS \"Installing: \${folder}/${program}\")
      file(MAKE_DIRECTORY \"\${folder}\")
      file(CREATE_LINK ${to_programs}/${program} \"\${folder}/${program}\" SYMBOLIC)")
  endforeach()

  foreach(page ${manual_pages})
    get_filename_component(section ${page} LAST_EXT)
    string(SUBSTRING ${section} 1 1 section)
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
  endforeach()

  set(completions packaging/completions)
  install(FILES ${completions}/tidewarden-cli.bash RENAME tidewarden-cli
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${completions}/_tidewarden-cli
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${completions}/tidewarden-cli.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

  install(FILES packaging/tidewarden.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  if(TARGET customizer)
    install(FILES packaging/customizer.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  endif()
  foreach(size 16 22 24 32 48 64 128 256)
    install(FILES icons/tidewarden-${size}.png RENAME tidewarden.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  install(FILES icons/tidewarden.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(FILES examples/dates.txt DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
endif()
