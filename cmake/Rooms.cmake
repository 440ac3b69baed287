# Rooms are static libraries with a visible door: a target sees the headers of the rooms that it names in
# DEPENDS (and of theirs), and of no other room, so a wrong arrow fails to compile or to link.
#
# The door is a folder of its own per room that holds one symbolic link, PREFIX -> the room's source folder;
# it stands outside the presets' build folders so that all presets share one compiler cache.
set(TVK_DOORS "${CMAKE_SOURCE_DIR}/build/doors")

function(tvk_open_door target prefix)
    get_filename_component(parent "${TVK_DOORS}/${target}/${prefix}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    set(door "${TVK_DOORS}/${target}/${prefix}")
    set(leadsTo "")
    if(IS_SYMLINK "${door}")
        file(READ_SYMLINK "${door}" leadsTo)
    endif()
    if(NOT leadsTo STREQUAL CMAKE_CURRENT_SOURCE_DIR)
        # Builds may be configured at the same time, and a link made over another would land inside the folder that the
        # first one leads to; a renamed one takes its place.
        string(RANDOM suffix)
        file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${door}-${suffix}" SYMBOLIC)
        file(RENAME "${door}-${suffix}" "${door}")
    endif()
endfunction()

# tvk_room(NAME PREFIX path/in/includes SOURCES a.cpp … [DEPENDS rooms…] [PRIVATE libraries…])
#   Headers are included as "PREFIX/Header.h". A room without sources is an interface library.
function(tvk_room target)
    cmake_parse_arguments(ROOM "" "PREFIX" "SOURCES;DEPENDS;PRIVATE" ${ARGN})
    tvk_open_door(${target} ${ROOM_PREFIX})
    if(ROOM_SOURCES)
        add_library(${target} STATIC ${ROOM_SOURCES})
        target_include_directories(${target} PUBLIC "${TVK_DOORS}/${target}")
        target_link_libraries(${target} PUBLIC ${ROOM_DEPENDS} PRIVATE tvk_flags ${ROOM_PRIVATE})
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE "${TVK_DOORS}/${target}")
        target_link_libraries(${target} INTERFACE ${ROOM_DEPENDS})
    endif()
endfunction()

# tvk_test(NAME SOURCES a.cpp … DEPENDS rooms… [TIMEOUT seconds]): one GoogleTest program, its cases known to CTest one by
# one, each with five minutes when nothing else is said.
# Values of parameters stay out of the names: they may be addresses, which differ from run to run.
# Locales come from TVK_LOCALES, so that tests find the foreign ones on every machine.
set(TVK_LOCALES "${CMAKE_SOURCE_DIR}/build/locales")
function(tvk_test target)
    cmake_parse_arguments(TEST "" "TIMEOUT" "SOURCES;DEPENDS" ${ARGN})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 300)
    endif()
    add_executable(${target} ${TEST_SOURCES})
    target_link_libraries(${target} PRIVATE ${TEST_DEPENDS} tvk_flags GTest::gmock_main)
    gtest_discover_tests(${target} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT "LOCPATH=${TVK_LOCALES}")
endfunction()
