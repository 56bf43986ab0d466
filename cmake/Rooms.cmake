# One target per folder. A room sees exactly the rooms it links: its headers are reached through a
# folder of links in the build tree that holds this room alone, so `#include "model/…"` compiles only
# in a target that links `model`.

function(orvane_room NAME)
    cmake_parse_arguments(ROOM "" "FOLDER" "LINKS;PRIVATE_LINKS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ROOM_FOLDER}/*.cpp ${ROOM_FOLDER}/*.h ${ROOM_FOLDER}/*.qrc)
    add_library(${NAME} STATIC ${sources})
    set(view ${CMAKE_BINARY_DIR}/rooms/${NAME})
    file(MAKE_DIRECTORY ${view})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${ROOM_FOLDER} ${view}/${NAME} SYMBOLIC)
    target_include_directories(${NAME} PUBLIC ${view})
    target_link_libraries(${NAME} PUBLIC ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS} orvane_options)
endfunction()

# A library that the program loads when it first needs it: `bin/plugins/NAME.so`, see platform/Plugins.h. Of
# the rooms it USES it sees the headers alone. It becomes the package orvane-NAME, see packaging/packages.cmake.
function(orvane_plugin NAME)
    cmake_parse_arguments(PLUGIN "" "FOLDER" "USES;LINKS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PLUGIN_FOLDER}/*.cpp ${PLUGIN_FOLDER}/*.h ${PLUGIN_FOLDER}/*.qrc)
    add_library(${NAME}_plugin MODULE ${sources})
    foreach(room IN LISTS PLUGIN_USES)
        target_include_directories(${NAME}_plugin PRIVATE ${CMAKE_BINARY_DIR}/rooms/${room})
    endforeach()
    target_include_directories(${NAME}_plugin PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${NAME}_plugin PRIVATE ${PLUGIN_LINKS} orvane_options)
    set_target_properties(${NAME}_plugin PROPERTIES PREFIX "" OUTPUT_NAME ${NAME}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/plugins)
    add_dependencies(orvane ${NAME}_plugin)
    install(TARGETS ${NAME}_plugin LIBRARY DESTINATION lib/orvane/plugins COMPONENT ${NAME})
    set_property(GLOBAL APPEND PROPERTY ORVANE_PLUGINS ${NAME})
endfunction()

# A program of test classes. Every `*_test.cpp` below FOLDERS holds one class of its own name, which
# becomes one test of ctest. PRECOMPILES are headers that most of them include.
function(orvane_test_program NAME)
    cmake_parse_arguments(PROGRAM "DBUS" "" "FOLDERS;LINKS;PRECOMPILES" ${ARGN})
    set(sources)
    foreach(folder IN LISTS PROGRAM_FOLDERS)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${folder}/*.cpp)
        list(APPEND sources ${found})
    endforeach()
    add_executable(${NAME} ${sources})
    target_link_libraries(${NAME} PRIVATE ${PROGRAM_LINKS} test_support orvane_options)
    if(ORVANE_PRECOMPILE)
        target_precompile_headers(${NAME} PRIVATE <QTest> <QSignalSpy> <algorithm> <chrono> <functional> <map>
            <memory> <optional> <ranges> <vector> ${PROGRAM_PRECOMPILES})
    endif()
    set(runner)
    if(PROGRAM_DBUS)
        set(runner dbus-run-session --)
    endif()
    foreach(source IN LISTS sources)
        get_filename_component(test ${source} NAME_WE)
        if(test MATCHES "_test$")
            add_test(NAME ${test} COMMAND ${runner} $<TARGET_FILE:${NAME}> ${test})
            set_tests_properties(${test} PROPERTIES TIMEOUT 300)
        endif()
    endforeach()
endfunction()
