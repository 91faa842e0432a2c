# OpenSubdivCpu::OpenSubdivCpu: the subdivision library without its drawing half. The package's own config file names
# archives that it doesn't ship.
find_path(OpenSubdivCpu_INCLUDE_DIR opensubdiv/far/topologyRefiner.h)
find_library(OpenSubdivCpu_LIBRARY osdCPU)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenSubdivCpu DEFAULT_MSG OpenSubdivCpu_LIBRARY OpenSubdivCpu_INCLUDE_DIR)

if(OpenSubdivCpu_FOUND AND NOT TARGET OpenSubdivCpu::OpenSubdivCpu)
    add_library(OpenSubdivCpu::OpenSubdivCpu UNKNOWN IMPORTED)
    set_target_properties(OpenSubdivCpu::OpenSubdivCpu PROPERTIES
        IMPORTED_LOCATION ${OpenSubdivCpu_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${OpenSubdivCpu_INCLUDE_DIR})
endif()
