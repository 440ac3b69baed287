# The page of `tvkexport --preview`: fetches what package.json names, once for all build folders, when a build is
# configured, and bundles it when the page's sources change.
set(TVK_PAGE_MODULES "${CMAKE_SOURCE_DIR}/build/page")

# tvk_fetch_page_modules(PAGE PROBLEM): npm's packages for the page. Puts in PROBLEM why they are not there; nothing
# when they are.
function(tvk_fetch_page_modules page problem)
    find_program(TVK_NPM npm NO_CMAKE_FIND_ROOT_PATH)
    find_program(TVK_NODE node NO_CMAKE_FIND_ROOT_PATH)
    file(MAKE_DIRECTORY "${TVK_PAGE_MODULES}")
    file(LOCK "${TVK_PAGE_MODULES}" DIRECTORY GUARD FUNCTION)
    file(SHA256 "${page}/package-lock.json" wanted)
    set(stamp "${TVK_PAGE_MODULES}/fetched")
    set(fetched "")
    if(EXISTS "${stamp}")
        file(READ "${stamp}" fetched)
    endif()
    set(${problem} "" PARENT_SCOPE)
    if(NOT TVK_NODE OR NOT TVK_NPM)
        set(${problem} "node and npm are missing" PARENT_SCOPE)
    elseif(NOT fetched STREQUAL wanted)
        file(COPY "${page}/package.json" "${page}/package-lock.json" "${page}/.npmrc" DESTINATION "${TVK_PAGE_MODULES}")
        execute_process(COMMAND "${TVK_NPM}" ci --ignore-scripts --prefer-offline --loglevel=error
            WORKING_DIRECTORY "${TVK_PAGE_MODULES}" RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
        if(status EQUAL 0)
            file(WRITE "${stamp}" "${wanted}")
        else()
            set(${problem} "npm cannot install what the page is made of:\n${output}" PARENT_SCOPE)
        endif()
    endif()
endfunction()

# tvk_preview_page(PAGE SOURCE): puts in SOURCE the file that holds the page of that folder. Where it cannot be made, a
# build with tests fails, and one for users goes on without the page and with TVK_PREVIEW off.
function(tvk_preview_page page source)
    tvk_fetch_page_modules("${page}" problem)
    if(problem AND TVK_BUILD_TESTS)
        message(FATAL_ERROR "The preview page cannot be built: ${problem}")
    elseif(problem)
        set(TVK_PREVIEW OFF CACHE BOOL "" FORCE)
        message(WARNING "There will be no preview page: ${problem}")
        set(${source} noPageParts.cpp PARENT_SCOPE)
        return()
    endif()
    set(made "${CMAKE_CURRENT_BINARY_DIR}/pageParts.cpp")
    file(GLOB inputs CONFIGURE_DEPENDS "${page}/*.html" "${page}/*.css" "${page}/*.mjs" "${page}/source/*.js")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${page}/package-lock.json")
    add_custom_command(OUTPUT "${made}" VERBATIM COMMENT "Bundling the preview page"
        COMMAND "${TVK_NODE}" "${page}/bundle.mjs" "${TVK_PAGE_MODULES}" "${made}"
        DEPENDS ${inputs} "${page}/package-lock.json")
    set(${source} "${made}" PARENT_SCOPE)
endfunction()
