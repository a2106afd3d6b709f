# CLI11 and nlohmann-json for a cross build. Both are headers alone, and the build machine has
# them between the headers of its own system, which the cross compiler must not see: it gets a
# folder that leads to these two only.
set(headers ${CMAKE_BINARY_DIR}/host_headers)
foreach(folder CLI nlohmann)
  find_path(TIDEWARDEN_${folder}_HEADERS ${folder} PATHS /usr/include /usr/local/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(MAKE_DIRECTORY ${headers})
  file(CREATE_LINK ${TIDEWARDEN_${folder}_HEADERS}/${folder} ${headers}/${folder} SYMBOLIC)
endforeach()

foreach(name CLI11::CLI11 nlohmann_json::nlohmann_json)
  add_library(${name} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${name} SYSTEM INTERFACE ${headers})
endforeach()
