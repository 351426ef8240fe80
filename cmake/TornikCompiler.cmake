# Compiler options of the whole tree: every target links tornik_options.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(TORNIK_CCACHE ccache)
    if(TORNIK_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${TORNIK_CCACHE}")
    endif()
endif()

add_library(tornik_options INTERFACE)
target_compile_options(tornik_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments> # qCDebug
    $<$<BOOL:${TORNIK_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(tornik_options INTERFACE
    QT_DEPRECATED_WARNINGS)

if(TORNIK_SANITIZE)
    target_compile_options(tornik_options INTERFACE
        -fsanitize=${TORNIK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(tornik_options INTERFACE -fsanitize=${TORNIK_SANITIZE})
endif()
if(TORNIK_COVERAGE)
    target_compile_options(tornik_options INTERFACE --coverage)
    target_link_options(tornik_options INTERFACE --coverage)
endif()
