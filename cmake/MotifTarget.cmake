# Motif::Xm, from what CMake's FindMotif found, and Motif::Mrm beside it. The installed package includes this file too.

if(NOT TARGET Motif::Xm)
    add_library(Motif::Xm UNKNOWN IMPORTED)
    set_target_properties(Motif::Xm PROPERTIES
        IMPORTED_LOCATION "${MOTIF_LIBRARIES}"
        INTERFACE_INCLUDE_DIRECTORIES "${MOTIF_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "X11::Xt;X11::X11")
endif()

if(NOT TARGET Motif::Mrm)
    get_filename_component(motif_directory "${MOTIF_LIBRARIES}" DIRECTORY)
    find_library(MOTIF_MRM_LIBRARY Mrm HINTS "${motif_directory}" REQUIRED)
    mark_as_advanced(MOTIF_MRM_LIBRARY)
    add_library(Motif::Mrm UNKNOWN IMPORTED)
    set_target_properties(Motif::Mrm PROPERTIES
        IMPORTED_LOCATION "${MOTIF_MRM_LIBRARY}"
        INTERFACE_LINK_LIBRARIES "Motif::Xm")
endif()
