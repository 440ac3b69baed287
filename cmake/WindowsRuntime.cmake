# The compiler's own libraries lie beside the programs, since a plug-in and the host that loads it must share them: text
# and errors that one of them made are the other's to free.
set(tvkRuntimeFiles "")
foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${file}")
        message(FATAL_ERROR "the compiler has no ${library}")
    endif()
    file(COPY "${file}" DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    list(APPEND tvkRuntimeFiles "${file}")
endforeach()
install(FILES ${tvkRuntimeFiles} DESTINATION bin COMPONENT program)
