# reelhouse_tests(CoreTests LINKS ReelhouseCore SOURCES model/FilamentTest.cpp)
# One program for a room, one ctest entry for each of its classes: a class is named after its file,
# and the program runs the class that its first argument names.
function(reelhouse_tests program)
    cmake_parse_arguments(tests "" "" "LINKS;SOURCES" ${ARGN})
    add_executable(${program} ${PROJECT_SOURCE_DIR}/tests/support/TestMain.cpp
        ${PROJECT_SOURCE_DIR}/tests/support/TestMain.h ${tests_SOURCES})
    target_link_libraries(${program} PRIVATE ${tests_LINKS} Qt6::Test ReelhouseOptions)
    target_precompile_headers(${program} PRIVATE <QtTest>)
    foreach(source IN LISTS tests_SOURCES)
        cmake_path(GET source STEM name)
        if(source MATCHES "Test\\.cpp$")
            add_test(NAME ${name} COMMAND ${program} ${name})
            set_tests_properties(${name} PROPERTIES TIMEOUT 60
                ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=fr_FR.UTF-8;TZ=Europe/Paris")
        endif()
    endforeach()
endfunction()
