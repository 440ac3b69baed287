# The host's API as an installed Maya, or its devkit, has it. Makes what host/ makes in the other case: `maya_headers`,
# which rooms see, and `maya_api`, which the plug-in is linked with. Sets MAYA_API, the kit's MAYA_API_VERSION.

set(MAYA_LOCATION "$ENV{MAYA_LOCATION}" CACHE PATH "Folder of the installed Maya, or of its devkit")
if(NOT IS_DIRECTORY "${MAYA_LOCATION}")
    message(FATAL_ERROR "TVK_HOST=maya needs MAYA_LOCATION, the folder of Maya or of its devkit; it is '${MAYA_LOCATION}'")
endif()

# Newer releases come without headers, and unpack their devkit as devkitBase; on macOS, MAYA_LOCATION is inside Maya.app.
find_path(MAYA_HEADERS maya/MTypes.h PATHS "${MAYA_LOCATION}" NO_CACHE NO_DEFAULT_PATH
    PATH_SUFFIXES include devkitBase/include devkit/include ../../include ../../devkit/include)
if(NOT MAYA_HEADERS)
    message(FATAL_ERROR "no maya/MTypes.h in include or devkitBase/include of ${MAYA_LOCATION}: "
        "install the devkit of this Maya there")
endif()

file(STRINGS "${MAYA_HEADERS}/maya/MTypes.h" line REGEX "^[ \t]*#[ \t]*define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+")
if(NOT line MATCHES "MAYA_API_VERSION[ \t]+([0-9]+)")
    message(FATAL_ERROR "${MAYA_HEADERS}/maya/MTypes.h does not tell its MAYA_API_VERSION")
endif()
set(MAYA_API ${CMAKE_MATCH_1})

add_library(maya_headers INTERFACE)
target_include_directories(maya_headers SYSTEM INTERFACE "${MAYA_HEADERS}")
if(WIN32)
    target_compile_definitions(maya_headers INTERFACE NT_PLUGIN _WINDOWS)
elseif(APPLE)
    target_compile_definitions(maya_headers INTERFACE OSMac_)
else()
    target_compile_definitions(maya_headers INTERFACE LINUX)
endif()
target_compile_definitions(maya_headers INTERFACE REQUIRE_IOSTREAM _BOOL) # old kits: the language as it is today

add_library(maya_api INTERFACE)
target_link_libraries(maya_api INTERFACE maya_headers)
foreach(library IN ITEMS Foundation OpenMaya OpenMayaAnim OpenMayaUI)
    find_library(file ${library} PATHS "${MAYA_LOCATION}" NO_CACHE NO_DEFAULT_PATH
        PATH_SUFFIXES lib devkitBase/lib devkit/lib MacOS ../../lib)
    if(NOT file)
        message(FATAL_ERROR "no library ${library} in lib or devkitBase/lib of ${MAYA_LOCATION}")
    endif()
    target_link_libraries(maya_api INTERFACE "${file}")
    unset(file)
endforeach()
if(MSVC)
    # The host looks for the plain names.
    target_link_options(maya_api INTERFACE /export:initializePlugin /export:uninitializePlugin)
endif()
message(STATUS "Plug-in for Maya API ${MAYA_API}, headers in ${MAYA_HEADERS}")
