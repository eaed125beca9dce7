# zemva_version_resource(TARGET FILE DESCRIPTION TYPE): what Windows shows of a file, and what an
# installer compares. TYPE is VFT_DLL or VFT_APP. Elsewhere it does nothing.
function(zemva_version_resource target ZEMVA_FILE_NAME ZEMVA_FILE_DESCRIPTION ZEMVA_FILE_TYPE)
  if(WIN32)
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
  endif()
endfunction()
