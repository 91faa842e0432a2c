# Under Ninja the meta-object step runs again when a file that it knows changes, but not when a glob finds a new one: the
# first build after that would miss its .moc. Taking the step's time stamp away whenever the sources differ makes it run.

function(kelmo_follow_sources target)
    get_target_property(sources ${target} SOURCES)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}_sources.txt)
    set(known "")
    if(EXISTS ${list})
        file(READ ${list} known)
    endif()
    if(NOT sources STREQUAL known)
        file(WRITE ${list} "${sources}")
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp)
    endif()
endfunction()
