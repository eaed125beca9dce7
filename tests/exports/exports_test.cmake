cmake_minimum_required(VERSION 3.23)

# Fails unless the LIBRARY exports exactly these C functions, under their plain names, and
# beside them nothing but names of the namespace. A DLL must also need none but the system's.
set(c_functions
  KoImportInitPackage KoImportReleasePackage KoImportGetWarning KoImportSizeFileFormatsSupported
  KoImportGetFileFormatInfo KoImportOpen KoImportClose KoImportGetLastError KoImportEstablishSize
  KoImportRead KoImportWrite KoImportIsCorrectFileType
  ZEMVAImport_ReadDS ZEMVAImport_DeleteDS ZEMVAImport_SizeDS ZEMVAImport_GetDSValue
  ZEMVAImport_GetVarName ZEMVAImport_GetObsName ZEMVAImport_GetObsNum
  ZEMVATable_Open ZEMVATable_Close ZEMVATable_GetMessage ZEMVATable_GetSize ZEMVATable_GetRows
  ZEMVATable_GetColumns ZEMVATable_GetObsNumbers ZEMVATable_GetVarNumbers ZEMVATable_GetObsNames
  ZEMVATable_GetVarNames)

if(LIBRARY MATCHES "\\.dll$")
  execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE ".*\\[Ordinal/Name Pointer\\] Table\n" "" table "${dump}")
  string(REGEX REPLACE "\n\n.*" "" table "${table}")
  string(REGEX REPLACE "[ \t]*\\[ *[0-9]+\\] *" "" names "${table}")
  string(REGEX MATCHALL "DLL Name: [^\n]+" needed "${dump}")
  list(FILTER needed EXCLUDE REGEX "DLL Name: (KERNEL32|msvcrt)\\.dll")
  if(needed)
    message(SEND_ERROR "needs libraries that a Windows system lacks: ${needed}")
  endif()
else()
  execute_process(COMMAND ${NM} --dynamic --defined-only --no-demangle --format=posix ${LIBRARY}
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE " [^\n]*" "" names "${table}")
endif()
string(REPLACE "\n" ";" names "${names}")
list(REMOVE_ITEM names "")

set(mangled ${names})
list(FILTER mangled INCLUDE REGEX "^_Z")
list(REMOVE_ITEM names ${mangled})

set(missing ${c_functions})
list(REMOVE_ITEM missing ${names})
list(REMOVE_ITEM names ${c_functions})
set(foreign ${mangled})
list(FILTER foreign EXCLUDE REGEX "^_Z(N|NK|T[ISTV]N|Thn?[0-9]+_NK?)5zemva")

foreach(fault missing names foreign)
  if(${fault})
    list(JOIN ${fault} "\n  " listed)
    message(SEND_ERROR "${fault}:\n  ${listed}")
  endif()
endforeach()
