# How every target of the project is compiled.
add_library(ReelhouseOptions INTERFACE)
target_compile_options(ReelhouseOptions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(ReelhouseOptions INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)

# Every room that draws shares one precompiled Qt header, so it is compiled once.
add_library(ReelhousePrecompiled OBJECT ${CMAKE_CURRENT_LIST_DIR}/Precompiled.cpp)
target_link_libraries(ReelhousePrecompiled PRIVATE Qt6::Widgets ReelhouseOptions)
target_precompile_headers(ReelhousePrecompiled PRIVATE <QtWidgets>)

# reelhouse_room(SpoolwrightUi SOURCES Theme.cpp Theme.h LINKS ReelhouseCore PRIVATE_LINKS Qt6::Svg)
# One static library for a room that draws; LINKS says which rooms below it may be included.
function(reelhouse_room name)
    cmake_parse_arguments(room "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(${name} STATIC ${room_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC Qt6::Widgets ${room_LINKS}
        PRIVATE ReelhouseOptions ${room_PRIVATE_LINKS})
    target_precompile_headers(${name} REUSE_FROM ReelhousePrecompiled)
endfunction()
