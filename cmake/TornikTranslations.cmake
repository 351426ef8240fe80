# tornik_add_catalogues(<target>): compiles the catalogues of src/languages into
# languages/ beside the executables. An unfinished entry fails the build.
function(tornik_add_catalogues target)
    set(outputs "")
    foreach(locale en)
        set(ts "${CMAKE_SOURCE_DIR}/src/languages/Tornik_${locale}.ts")
        set(qm "${CMAKE_BINARY_DIR}/bin/languages/Tornik_${locale}.qm")
        add_custom_command(
            OUTPUT "${qm}"
            COMMAND "${CMAKE_COMMAND}" "-DTS=${ts}" -P "${CMAKE_SOURCE_DIR}/cmake/CheckCatalogue.cmake"
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_BINARY_DIR}/bin/languages"
            COMMAND Qt5::lrelease -silent "${ts}" -qm "${qm}"
            DEPENDS "${ts}" "${CMAKE_SOURCE_DIR}/cmake/CheckCatalogue.cmake"
            COMMENT "Compiling catalogue Tornik_${locale}"
            VERBATIM)
        list(APPEND outputs "${qm}")
    endforeach()
    add_custom_target(tornik_catalogues DEPENDS ${outputs})
    add_dependencies(${target} tornik_catalogues)
endfunction()
