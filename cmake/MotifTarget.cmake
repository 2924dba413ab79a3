# Motif::Xm, from what CMake's FindMotif found. The installed package includes this file too.

if(NOT TARGET Motif::Xm)
    add_library(Motif::Xm UNKNOWN IMPORTED)
    set_target_properties(Motif::Xm PROPERTIES
        IMPORTED_LOCATION "${MOTIF_LIBRARIES}"
        INTERFACE_INCLUDE_DIRECTORIES "${MOTIF_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "X11::Xt;X11::X11")
endif()
