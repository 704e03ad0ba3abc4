# The installation: `cmake --install <build> --prefix <prefix>` gives
#   lib/                      the library (and, as the system folder, the translator library and
#                             the tracing tool beside it), pkgconfig/zqcai_rd_mbcs.pc and the
#                             CMake package cmake/zqcai_rd_mbcs/
#   include/                  the public headers, the generated ones among them
#   bin/                      the tools
#   share/zqcai/              the shared folder: qxef/ with the libraries the driver binds by
#                             name (storage, task catalog, debug server, device plug-ins),
#                             errors/English/ with the explanation files, and the store
#   etc/zqcai/registry.reg    (Linux) the registry of the installation, naming the shared
#                             folder, which the library finds beside itself: no environment
#                             variable is needed
set(ZQ_SHARED_FOLDER share/zqcai)

install(TARGETS zqcai_rd_mbcs EXPORT zqcai_rd_mbcsTargets
  LIBRARY DESTINATION lib RUNTIME DESTINATION bin ARCHIVE DESTINATION lib INCLUDES DESTINATION include)
file(GLOB zq_public_headers ${PROJECT_SOURCE_DIR}/include/*.h)
install(FILES ${zq_public_headers}
  ${PROJECT_BINARY_DIR}/include/zqcai_rd_mbcs_attribute_ids.h
  ${PROJECT_BINARY_DIR}/include/zqcai_rd_mbcs_accessors.h
  ${PROJECT_BINARY_DIR}/include/zqcai_rd_mbcs_channels.h
  ${PROJECT_BINARY_DIR}/include/zqcai_rd_mbcs_values.h
  ${PROJECT_BINARY_DIR}/include/zqcai_rd_mbcs_generic.h
  ${ZQ_STATUS_INCLUDE}/zqvorex_status_codes.h
  ${PROJECT_BINARY_DIR}/src/plugin/generated/include/zqvorex_plugin_operations.h
  DESTINATION include)

# The bound libraries of the shared folder, and what lies in the system folder.
set(zq_bound zqvorexStorage zqvorexTaskCatalog zqvorexDebugServer)
foreach(plugin IN ITEMS zqvorexSim)
  if(TARGET ${plugin})
    list(APPEND zq_bound ${plugin})
  endif()
endforeach()
install(TARGETS ${zq_bound} LIBRARY DESTINATION ${ZQ_SHARED_FOLDER}/qxef RUNTIME DESTINATION ${ZQ_SHARED_FOLDER}/qxef)
install(TARGETS zqxlator ZqSpyLog LIBRARY DESTINATION lib RUNTIME DESTINATION bin)
install(DIRECTORY ${ZQ_ERRORS_FOLDER}/ DESTINATION ${ZQ_SHARED_FOLDER}/errors)

set(zq_tools zqstorage zqerror)
foreach(tool IN ITEMS zqacq)
  if(TARGET ${tool})
    list(APPEND zq_tools ${tool})
  endif()
endforeach()
install(TARGETS ${zq_tools} RUNTIME DESTINATION bin)
if(NOT WIN32)
  set_target_properties(${zq_tools} PROPERTIES INSTALL_RPATH "$ORIGIN/../lib")
endif()

# pkg-config and the CMake package, both relocatable: they find the prefix from where they lie.
install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/zqcai_rd_mbcs.pc DESTINATION lib/pkgconfig)
install(EXPORT zqcai_rd_mbcsTargets NAMESPACE zqcai:: DESTINATION lib/cmake/zqcai_rd_mbcs)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/zqcai_rd_mbcsConfig.cmake DESTINATION lib/cmake/zqcai_rd_mbcs)

# On Windows an installer writes the registry; elsewhere the installation has its own file.
if(NOT WIN32)
  install(CODE "
    set(prefix \"\${CMAKE_INSTALL_PREFIX}\")
    if(DEFINED ENV{DESTDIR})
      set(root \"\$ENV{DESTDIR}\${prefix}\")
    else()
      set(root \"\${prefix}\")
    endif()
    file(WRITE \"\${root}/etc/zqcai/registry.reg\"
\"Windows Registry Editor Version 5.00\\r\\n\\r\\n[HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\Torvane\\\\Common\\\\Installer]\\r\\n\\\"ZQSHAREDDIR64\\\"=\\\"\${prefix}/${ZQ_SHARED_FOLDER}\\\"\\r\\n\\r\\n[HKEY_LOCAL_MACHINE\\\\SOFTWARE\\\\WOW6432Node\\\\Torvane\\\\Common\\\\Installer]\\r\\n\\\"ZQSHAREDDIR\\\"=\\\"\${prefix}/${ZQ_SHARED_FOLDER}\\\"\\r\\n\")
    message(STATUS \"Installing: \${root}/etc/zqcai/registry.reg\")")
endif()

# The Python package, with the table of values it reads, where Debian's python3 finds packages
# of a prefix; it finds the library four folders up.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/python/zqcai DESTINATION lib/python3/dist-packages
  PATTERN __pycache__ EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/src/catalogue/values.tsv DESTINATION lib/python3/dist-packages/zqcai)
