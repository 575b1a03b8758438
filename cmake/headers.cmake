# SPDX-License-Identifier: GPL-2.0-or-later
# Compiles each header of src alone, with the flags and libraries of the target whose folder it lies in, so that none leans
# on what its users include before it. A header is compiled again when it or what it includes has changed.

# tessarine_check_headers(TARGET FOLDER...): the headers that lie directly in these folders of src.
function(tessarine_check_headers target)
  if(NOT TARGET ${target})
    return()
  endif()
  set(sources "")
  foreach(folder ${ARGN})
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
    foreach(header ${headers})
      set(source ${CMAKE_BINARY_DIR}/headers/${header}.cpp)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${CMAKE_SOURCE_DIR}/src/${header}\"\n" @ONLY)
      list(APPEND sources ${source})
      set_property(GLOBAL APPEND PROPERTY TESSARINE_CHECKED_HEADERS ${header})
    endforeach()
  endforeach()
  add_library(${target}_headers OBJECT ${sources})
  get_target_property(libraries ${target} LINK_LIBRARIES)
  target_link_libraries(${target}_headers PRIVATE tessarine_options ${libraries} ${target})
endfunction()

# Ends the configuration where a header of src belongs to none of the calls above.
function(tessarine_check_headers_are_all)
  get_property(checked GLOBAL PROPERTY TESSARINE_CHECKED_HEADERS)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/*.h)
  list(REMOVE_ITEM headers ${checked})
  if(NOT TARGET tessarine_windows)
    list(FILTER headers EXCLUDE REGEX "^hosts/windows/")
  endif()
  if(NOT TARGET tessarine_qgis_host)
    list(FILTER headers EXCLUDE REGEX "^hosts/qgis/")
  endif()
  if(headers)
    message(FATAL_ERROR "No target compiles these headers alone: ${headers}. Name their folder in src/CMakeLists.txt.")
  endif()
endfunction()
