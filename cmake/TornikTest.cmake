# tornik_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [LABEL unit|io|gui|end-to-end]
#                 [TIMEOUT <seconds>] [DEPENDS <target>...] [ENVIRONMENT <VAR=value>...])
#
# One QtTest program. It runs in an empty working directory of its own, with a private HOME and
# private XDG directories, offscreen and in the C.UTF-8 locale.
function(tornik_add_test name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBRARIES;DEPENDS;ENVIRONMENT" ${ARGN})
    if(NOT ARG_LABEL)
        set(ARG_LABEL unit)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE tornik_options Qt5::Test ${ARG_LIBRARIES})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        TORNIK_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
        TORNIK_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
    if(ARG_DEPENDS)
        add_dependencies(${name} ${ARG_DEPENDS})
    endif()
    tornik_register_test(${name} COMMAND $<TARGET_FILE:${name}> LABEL ${ARG_LABEL}
        TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT ${ARG_ENVIRONMENT})
endfunction()

# tornik_register_test(<name> COMMAND <command>... [LABEL ...] [TIMEOUT ...] [ENVIRONMENT ...]):
# the same surroundings for any command.
function(tornik_register_test name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "COMMAND;ENVIRONMENT" ${ARGN})
    set(suppressions "${CMAKE_SOURCE_DIR}/tests/support/lsan.supp")
    add_test(NAME ${name}
        COMMAND "${CMAKE_SOURCE_DIR}/tests/support/run-isolated"
            "${CMAKE_BINARY_DIR}/test-run/${name}" ${ARG_COMMAND})
    set_tests_properties(${name} PROPERTIES
        LABELS "${ARG_LABEL}"
        TIMEOUT "${ARG_TIMEOUT}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${suppressions}:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;${ARG_ENVIRONMENT}")
endfunction()
