# tvk_borrow_headers(TARGET folder): an imported library of nothing but headers of Debian's, from /usr/include/folder.
#   That folder alone is seen, by a link in the build folder: beside it lie the headers of another system's C library.
function(tvk_borrow_headers target folder)
    if(TARGET ${target})
        return()
    endif()
    if(NOT EXISTS "/usr/include/${folder}")
        message(FATAL_ERROR "/usr/include/${folder} is missing (./tvk test-windows installs what it needs)")
    endif()
    set(borrowed "${CMAKE_BINARY_DIR}/borrowed/${folder}")
    file(MAKE_DIRECTORY "${borrowed}")
    file(CREATE_LINK "/usr/include/${folder}" "${borrowed}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    # Both <Folder/Header.h> and <Header.h> are usual.
    set_target_properties(${target} PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${borrowed};${borrowed}/${folder}"
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${borrowed};${borrowed}/${folder}")
endfunction()
