# Installs the build, moves the tree, builds the minimal loader against it with find_package, puts
# the plugin beside the programs, and loads a file of its format.

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
                    ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\nended with ${result}:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/first)
# An installed tree may lie anywhere.
file(RENAME ${WORK_DIR}/first ${WORK_DIR}/moved)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/minimal-loader -B ${WORK_DIR}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/moved -DCMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${CMAKE_COMMAND} --install ${WORK_DIR}/build)

run(${WORK_DIR}/moved/bin/pellux-batch ${SOURCE_DIR}/examples/minimal-loader/corner.tri
    --no-config --info=json)
if(NOT output MATCHES "\"type\": \"Tri\".*\"triangles\": 4,")
    message(FATAL_ERROR "the loader plugin did not load its file:\n${output}")
endif()
