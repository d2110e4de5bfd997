include(GoogleTest)

# photolib_test(NAME SOURCES ... LIBRARIES ...): one GoogleTest program, each of its tests one ctest test.
function(photolib_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
    if(PHOTOLIB_SANITIZE MATCHES undefined)
        # What gcc adds to every pointer of a test doubles the time to compile it; bad pointers end the test without.
        target_compile_options(${name} PRIVATE -fno-sanitize=null,object-size,vptr,alignment)
    endif()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120 ENVIRONMENT TZ=UTC)
endfunction()
