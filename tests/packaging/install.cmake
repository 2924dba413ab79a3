# Installs the build BUILD into an empty PREFIX: a header that is gone must not linger there.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
