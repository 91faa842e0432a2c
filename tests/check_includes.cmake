# Checks that includes under src/ point only backwards: cmake -D SOURCE_DIR=<folder src> -P check_includes.cmake
# Each layer knows itself and the layers before it; layers on one line don't know one another.
cmake_minimum_required(VERSION 3.25)

set(order
    math
    core
    mesh
    modifiers
    rig
    formats
    render
    tools
    "script|schematic"
    shell)

set(rank 0)
foreach(group IN LISTS order)
    string(REPLACE "|" ";" layers "${group}")
    foreach(layer IN LISTS layers)
        set(rank_${layer} ${rank})
    endforeach()
    math(EXPR rank "${rank} + 1")
endforeach()

set(faults "")
set(checked 0)

# Sets `fault` to what is wrong with including `path` from a file of `layer`, or to nothing.
function(find_fault layer path)
    set(fault "" PARENT_SCOPE)
    if(path MATCHES "(^|/)\\.\\./")
        set(fault "\"${path}\" leaves its folder; includes start at src/" PARENT_SCOPE)
        return()
    endif()
    string(REGEX MATCH "^[^/]+" target "${path}")
    if(NOT path MATCHES "/" OR NOT DEFINED rank_${target} OR target STREQUAL layer)
        return()
    endif()
    if(NOT rank_${target} LESS rank_${layer})
        set(fault "${layer} may not include \"${path}\"" PARENT_SCOPE)
    endif()
endfunction()

file(GLOB_RECURSE files RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*.h ${SOURCE_DIR}/*.cpp)
foreach(file IN LISTS files)
    string(REGEX MATCH "^[^/]+" layer "${file}")
    if(NOT file MATCHES "/" OR NOT DEFINED rank_${layer})
        list(APPEND faults "${file}: lies in none of the layers")
        continue()
    endif()
    math(EXPR checked "${checked} + 1")
    file(STRINGS ${SOURCE_DIR}/${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<]")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[^\"<]*[\"<]([^\">]*).*$" "\\1" path "${line}")
        find_fault(${layer} "${path}")
        if(fault)
            list(APPEND faults "${file}: ${fault}")
        endif()
    endforeach()
endforeach()

if(faults)
    list(JOIN faults "\n  " text)
    message(FATAL_ERROR "Includes that point the wrong way:\n  ${text}")
endif()
message(STATUS "Includes of ${checked} files point backwards only")
