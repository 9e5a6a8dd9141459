# What an installed tree holds: headers below include/krobjects (their include root), the two libraries, the install
# folder (data and side library) below share/krobjects, the program, and the packages by which others find all that.

include(CMakePackageConfigHelpers)

install(TARGETS krhost KrObjects EXPORT KrObjectsTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(KR_BUILD_PROGRAM AND TARGET kr)
  install(TARGETS kr RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(TARGETS krobjfn_ryB16 LIBRARY DESTINATION ${CMAKE_INSTALL_DATADIR}/${KR_DATA_SUBDIR}/Support)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/${KR_DATA_SUBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/krobjects
        FILES_MATCHING PATTERN "*.h" PATTERN "side" EXCLUDE)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/KrObjects)
install(EXPORT KrObjectsTargets NAMESPACE KrObjects:: DESTINATION ${package_folder})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KrObjectsConfig.cmake.in ${PROJECT_BINARY_DIR}/KrObjectsConfig.cmake
                              INSTALL_DESTINATION ${package_folder} PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KrObjectsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KrObjectsConfig.cmake ${PROJECT_BINARY_DIR}/KrObjectsConfigVersion.cmake
        DESTINATION ${package_folder})

# Relative to where the file lies, so that the tree can be moved.
file(RELATIVE_PATH KR_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" KR_PC_PREFIX "${KR_PC_PREFIX}")
foreach(name krhost krobjects)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Manual pages and completion, which the program writes from the declaration of its verbs.
if(TARGET kr AND EXISTS ${PROJECT_SOURCE_DIR}/apps/kr/documents.cpp AND NOT CMAKE_CROSSCOMPILING)
  set(documents ${PROJECT_BINARY_DIR}/documents)
  file(MAKE_DIRECTORY ${documents})
  set(pages)
  foreach(verb "" build bom list about help)
    set(page ${documents}/kr.1)
    if(verb)
      set(page ${documents}/kr-${verb}.1)
    endif()
    add_custom_command(OUTPUT ${page} COMMAND kr documents man ${verb} > ${page} DEPENDS kr VERBATIM)
    list(APPEND pages ${page})
  endforeach()
  add_custom_command(OUTPUT ${documents}/kr COMMAND kr documents completion > ${documents}/kr DEPENDS kr VERBATIM)
  add_custom_target(kr_documents ALL DEPENDS ${pages} ${documents}/kr)
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${documents}/kr DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
endif()
