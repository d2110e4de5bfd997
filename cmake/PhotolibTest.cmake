include(GoogleTest)

# Most of the time of a build is the compiler's for tests. So their code is not optimised, with sanitizers not checked for
# every pointer that it follows (a bad one ends the test without), and the headers of most tests are compiled once. Off,
# PHOTOLIB_TEST_PCH shows which test does not name what it includes.
option(PHOTOLIB_TEST_PCH "Compile the headers that most tests include once" ON)

function(photolib_test_flags name)
    target_compile_options(${name} PRIVATE -O0)
    if(TARGET photolib_test_headers)
        target_compile_options(${name} PRIVATE -fpch-preprocess) # lets ccache keep the results
    endif()
    if(PHOTOLIB_SANITIZE MATCHES undefined)
        target_compile_options(${name} PRIVATE -fno-sanitize=null,object-size,vptr,alignment)
    endif()
endfunction()

if(PHOTOLIB_TEST_PCH AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    file(WRITE ${PROJECT_BINARY_DIR}/photolib_test_headers.cpp "")
    add_library(photolib_test_headers OBJECT ${PROJECT_BINARY_DIR}/photolib_test_headers.cpp)
    set_target_properties(photolib_test_headers PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(photolib_test_headers PRIVATE Qt5::Core GTest::gmock GTest::gtest_main)
    target_precompile_headers(photolib_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>
        <QByteArray> <QDateTime> <QDir> <QFile> <QList> <QString> <QStringList> <QTemporaryDir>
        <algorithm> <atomic> <functional> <memory> <string> <thread> <vector>)
    photolib_test_flags(photolib_test_headers)
endif()

# photolib_test_program(NAME SOURCES ... LIBRARIES ...): a GoogleTest program, without a main() of its own.
function(photolib_test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
    photolib_test_flags(${name})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF) # each test file has names of its own
    if(TARGET photolib_test_headers)
        target_precompile_headers(${name} REUSE_FROM photolib_test_headers)
    endif()
endfunction()

# photolib_test(NAME SOURCES ... LIBRARIES ...): a GoogleTest program, each of its tests one ctest test.
function(photolib_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    photolib_test_program(${name} SOURCES ${arg_SOURCES} LIBRARIES ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 600 ENVIRONMENT TZ=UTC)
endfunction()
