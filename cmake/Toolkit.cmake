# The toolkit as imported targets: Motif::Xm, X11::Xt, X11::X11, X11::X11_xcb, X11::xcb.
# The installed package includes this file too, so that both sides find the toolkit in one way.

include(CMakeFindDependencyMacro)

find_dependency(X11 COMPONENTS Xt X11_xcb xcb)
find_dependency(Motif)

if(NOT TARGET Motif::Xm)
    add_library(Motif::Xm UNKNOWN IMPORTED)
    set_target_properties(Motif::Xm PROPERTIES
        IMPORTED_LOCATION "${MOTIF_LIBRARIES}"
        INTERFACE_INCLUDE_DIRECTORIES "${MOTIF_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "X11::Xt;X11::X11")
endif()
