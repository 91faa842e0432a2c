# Compiler launcher, warnings and sanitizers: the interface target kelmo_options carries them.

find_program(KELMO_CCACHE ccache)
if(KELMO_CCACHE)
    # A clone in another folder hits the same cache: paths are taken relative to the root of the clone.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=include_file_mtime,include_file_ctime,pch_defines,time_macros
        ${KELMO_CCACHE})
endif()

add_library(kelmo_options INTERFACE)
target_compile_options(kelmo_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual)
# GCC's optimiser takes moves of values that it has inlined for writes beyond their end, in Qt's headers as in ours.
target_compile_options(kelmo_options INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-stringop-overflow>
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-maybe-uninitialized>)
target_compile_definitions(kelmo_options INTERFACE QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
# A warning in the log names its place in the source. Qt leaves that out of optimised builds unless it is asked for.
target_compile_definitions(kelmo_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:QT_MESSAGELOGCONTEXT>)
if(KELMO_CCACHE)
    target_compile_options(kelmo_options INTERFACE -fpch-preprocess)
endif()
# The programs are large with debug information; these linkers take a fraction of the time.
foreach(linker lld gold)
    find_program(KELMO_LINKER_${linker} ld.${linker})
    if(KELMO_LINKER_${linker})
        target_link_options(kelmo_options INTERFACE -fuse-ld=${linker})
        break()
    endif()
endforeach()
if(KELMO_WERROR)
    target_compile_options(kelmo_options INTERFACE -Werror)
endif()
if(KELMO_SANITIZE)
    target_compile_options(kelmo_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(kelmo_options INTERFACE -fsanitize=address,undefined)
endif()
