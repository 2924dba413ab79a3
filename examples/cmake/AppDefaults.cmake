# The app-defaults files of the examples: NAME/CLASS.ad in the sources, CLASS where the toolkit looks for
# it. A program that finds none has the same resources as its fallback, made from the same file.

set(CORVIDLMW_APP_DEFAULTS_DIR ${CMAKE_INSTALL_DATADIR}/X11/app-defaults
    CACHE STRING "Where app-defaults files are installed")

# use_app_defaults(<target> <file>): <CLASSResources.inc> holds the resources for the target's table of fallbacks.
function(use_app_defaults target file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    get_filename_component(class ${file} NAME_WE)
    file(READ ${file} resources)
    string(STRIP "${resources}" resources)
    string(REGEX REPLACE "\n([ \t]*(![^\n]*)?\n)+" "\n" resources "\n${resources}")
    string(REGEX REPLACE "([\\\"])" "\\\\\\1" resources "${resources}")
    string(REGEX REPLACE "\n([^\n]+)" "(char *)\"\\1\",\n" resources "${resources}")
    file(CONFIGURE OUTPUT resources/${class}Resources.inc @ONLY CONTENT "// Made from ${file}.
${resources}")
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/resources)
endfunction()

# A class begins with a capital letter; the other .ad files are data.
function(install_app_defaults)
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../*/[A-Z]*.ad)
    foreach(file IN LISTS files)
        get_filename_component(class ${file} NAME_WE)
        install(FILES ${file} DESTINATION ${CORVIDLMW_APP_DEFAULTS_DIR} RENAME ${class})
    endforeach()
endfunction()
