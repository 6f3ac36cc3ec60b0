# Installs the build into a folder of its own, builds the consumer against it and runs it.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -DCXX=... -DFLAGS=... -P check.cmake
file(REMOVE_RECURSE ${WORK})
function(must)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()
must(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
must(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G Ninja -DCMAKE_PREFIX_PATH=${WORK}/installed
    -DCMAKE_CXX_COMPILER=${CXX})
must(${CMAKE_COMMAND} --build ${WORK}/build)
must(${WORK}/build/consumer)
