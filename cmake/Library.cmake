# The product: libvgdatatypes.so. It links to Boost's headers and to the host, nothing else.

find_package(Boost REQUIRED)
string(TIMESTAMP VGDT_BUILD_SECONDS "%s" UTC)
string(TIMESTAMP VGDT_BUILD_DATE "%Y-%m-%d %H:%M:%S UTC" UTC)
configure_file(src/build_info.h.in ${PROJECT_BINARY_DIR}/made/build_info.h)

file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS include/*.h)
file(GLOB library_sources CONFIGURE_DEPENDS src/*.cpp src/enumerated/*.cpp src/shaped/*.cpp
     generated/*.cpp objects/*.cpp)
add_library(vgdatatypes SHARED)
add_library(vgdatatypes::vgdatatypes ALIAS vgdatatypes)
target_sources(vgdatatypes
  PRIVATE ${library_sources}
  PUBLIC FILE_SET HEADERS BASE_DIRS include FILES ${public_headers})
# The catalogues stand beside the public headers that include them.
file(GLOB catalogues CONFIGURE_DEPENDS include/graphics/datatype/*.def)
target_include_directories(vgdatatypes PRIVATE src generated ${PROJECT_BINARY_DIR}/made)
install(FILES ${catalogues} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/graphics/datatype)
target_include_directories(vgdatatypes SYSTEM
  PRIVATE ${JNI_INCLUDE_DIR} ${JNI_INCLUDE_DIR}/linux)
# Also for whoever includes the headers.
target_compile_features(vgdatatypes PUBLIC cxx_std_20)
target_link_libraries(vgdatatypes PUBLIC vghost PRIVATE Boost::headers)
# Nothing replaces the library's own symbols: they are bound when it is linked, not when it is loaded.
target_link_options(vgdatatypes PRIVATE LINKER:-Bsymbolic LINKER:-z,pack-relative-relocs)
# But a public variable may live in the program, which has a copy of it that both have to use.
target_link_options(vgdatatypes PRIVATE
  LINKER:--export-dynamic-symbol=_ZN8graphics8datatype16CallbackExecutor12sInstancePtrE)
# The library stays when it is closed: the host keeps the types, conversions and packages that it
# registered until the process ends, and would call into memory that is gone.
target_link_options(vgdatatypes PRIVATE LINKER:-z,nodelete)
set_target_properties(vgdatatypes PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION 0
  VERIFY_INTERFACE_HEADER_SETS ON)

install(TARGETS vgdatatypes EXPORT vgdatatypesTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(NOT VGDT_HOST_DIR)
  install(EXPORT vgdatatypesTargets NAMESPACE vgdatatypes::
          FILE vgdatatypesConfig.cmake
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vgdatatypes)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/vgdatatypesConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/vgdatatypesConfigVersion.cmake
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vgdatatypes)
endif()

# The labels of the enumerated types, where the stand-in looks for the library's catalogue. Another
# host has its own form of catalogues.
if(NOT VGDT_HOST_DIR)
  set(labels ${PROJECT_BINARY_DIR}/made/labels/root.txt)
  set(catalog VORTIL/vgdatatypes/vgdatatypes)
  set(catalog_dir ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/vghost/catalogs/${catalog})
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/made/labels ${catalog_dir})
  add_executable(write_labels generated/labels/write_labels.cpp)
  target_include_directories(write_labels PRIVATE include host/include)
  set_target_properties(write_labels PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/made)
  add_custom_command(
    OUTPUT ${catalog_dir}/root.res
    BYPRODUCTS ${labels}
    COMMAND write_labels ${labels}
    COMMAND ${GENRB} --encoding UTF-8 --quiet --destdir ${catalog_dir} ${labels}
    DEPENDS write_labels
    COMMENT "Bundling labels"
    VERBATIM)
  add_custom_target(vgdatatypes_labels ALL DEPENDS ${catalog_dir}/root.res)
  add_dependencies(vgdatatypes vgdatatypes_labels)
  install(DIRECTORY ${catalog_dir}/
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/vghost/catalogs/${catalog})
endif()
