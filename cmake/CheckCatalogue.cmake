# cmake -DTS=<file.ts> -P CheckCatalogue.cmake: fails when the catalogue has an unfinished entry.
file(READ "${TS}" content)
string(REGEX MATCHALL "type=\"unfinished\"" unfinished "${content}")
list(LENGTH unfinished count)
if(count GREATER 0)
    message(FATAL_ERROR "${TS}: ${count} unfinished entries")
endif()
