# Flags that every target of the project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# At -O3 gcc takes branches inside Qt's containers for null dereferences.
add_compile_options(
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast $<$<NOT:$<CONFIG:Release>>:-Wnull-dereference> -Wformat=2 -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>) # Qt's logging macros
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_STRICT_ITERATORS)

if(PHOTOLIB_SANITIZE)
    add_compile_options(-fsanitize=${PHOTOLIB_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-null-dereference $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    add_link_options(-fsanitize=${PHOTOLIB_SANITIZE})
endif()
