# What `cmake --install` and `cpack` make: one folder that works wherever it is put. Builds for both hosts can go into the
# same folder, since the plug-in of each lies where its host looks for it:
#
#   bin/               component "program": tvkexport with its libraries and its own plug-in (embedded host)
#   tvk_export.mod     component "module": with the folder on MAYA_MODULE_PATH, Maya finds plug-ins/ and scripts/ (Maya)
#   plug-ins/
#   scripts/           component "scripts"
#   docs/ samples/     component "guides"

set(system linux)
set(platform linux)
if(WIN32)
    set(system windows)
    set(platform win64)
elseif(APPLE)
    set(system macos)
    set(platform mac)
endif()
set(packageOf "")

if(TVK_HOST STREQUAL "embedded" AND TARGET tvkexport)
    install(TARGETS tvkexport host_api tvk_export_plugin COMPONENT program
        RUNTIME DESTINATION bin LIBRARY DESTINATION bin ARCHIVE DESTINATION bin EXCLUDE_FROM_ALL)
    find_package(Imath REQUIRED)
    # The one library that a machine without the build's packages lacks.
    get_target_property(kind Imath::Imath TYPE)
    if(kind STREQUAL "SHARED_LIBRARY")
        install(IMPORTED_RUNTIME_ARTIFACTS Imath::Imath COMPONENT program
            RUNTIME DESTINATION bin LIBRARY DESTINATION bin)
        set(terms /usr/share/doc/libimath-dev/copyright) # where Debian has them
        if(EXISTS ${terms})
            install(FILES ${terms} DESTINATION docs/licenses RENAME Imath.txt COMPONENT program)
        endif()
    endif()
elseif(TVK_HOST STREQUAL "maya")
    install(TARGETS tvk_export_plugin COMPONENT module LIBRARY DESTINATION plug-ins)
    # 20200000 is Maya 2020, 201600 is 2016, 850 is 8.5. A plug-in works in the release that it was built for; module files
    # of releases before 2013 know no conditions.
    set(moduleConditions "")
    if(MAYA_API GREATER_EQUAL 20180000)
        math(EXPR release "${MAYA_API} / 10000")
    elseif(MAYA_API GREATER_EQUAL 200800)
        math(EXPR release "${MAYA_API} / 100")
    else()
        math(EXPR whole "${MAYA_API} / 100")
        math(EXPR tenth "${MAYA_API} / 10 % 10")
        set(release ${whole}.${tenth})
    endif()
    if(MAYA_API GREATER_EQUAL 201300)
        set(moduleConditions "MAYAVERSION:${release} PLATFORM:${platform} ")
    endif()
    configure_file("${CMAKE_CURRENT_LIST_DIR}/tvk_export.mod.in" "${CMAKE_BINARY_DIR}/tvk_export.mod" @ONLY)
    install(FILES "${CMAKE_BINARY_DIR}/tvk_export.mod" DESTINATION . COMPONENT module)
    set(packageOf "-maya${release}")
endif()

install(DIRECTORY scripts/ DESTINATION scripts COMPONENT scripts FILES_MATCHING PATTERN "*.mel")
install(FILES CHANGELOG.md DESTINATION docs COMPONENT guides)
# Not the pages that are about the sources.
install(DIRECTORY docs/ DESTINATION docs COMPONENT guides FILES_MATCHING PATTERN "*.md" PATTERN "*.png"
    PATTERN "benchmarks.md" EXCLUDE PATTERN "building.md" EXCLUDE PATTERN "testing.md" EXCLUDE)
install(DIRECTORY samples/ DESTINATION samples COMPONENT guides)

set(CPACK_PACKAGE_NAME tvk_export)
set(CPACK_PACKAGE_FILE_NAME "tvk_export-${PROJECT_VERSION}${packageOf}-${system}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_GENERATOR TGZ ZIP)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
