# Installs the build and moves the tree (STEP=tree), or builds an example against it with
# find_package, installs it there and runs it (STEP=loader, command, host).

cmake_minimum_required(VERSION 3.24)
set(tree ${WORK_DIR}/moved)
set(batch ${tree}/bin/pellux-batch)
set(corner ${SOURCE_DIR}/examples/minimal-loader/corner.tri)

# run(CODE COMMAND...): fails unless the command ends with that code; sets output.
function(run code)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
                    ERROR_VARIABLE output)
    if(NOT result EQUAL code)
        message(FATAL_ERROR "${ARGN}\nended with ${result} and not with ${code}:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# expect(TEXT): fails unless the output of the last run holds the text.
function(expect text)
    string(FIND "${output}" "${text}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "\"${text}\" is missing in:\n${output}")
    endif()
endfunction()

function(build_example name)
    file(REMOVE_RECURSE ${WORK_DIR}/${name})
    run(0 ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/${name} -B ${WORK_DIR}/${name} -G ${GENERATOR}
        -DCMAKE_PREFIX_PATH=${tree} -DCMAKE_CXX_COMPILER=${COMPILER}
        "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror")
    run(0 ${CMAKE_COMMAND} --build ${WORK_DIR}/${name})
    run(0 ${CMAKE_COMMAND} --install ${WORK_DIR}/${name})
endfunction()

if(STEP STREQUAL "tree")
    file(REMOVE_RECURSE ${WORK_DIR})
    run(0 ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/first)
    file(RENAME ${WORK_DIR}/first ${tree})
    run(0 ${batch} ${SOURCE_DIR}/examples/gear.stl --no-config --info=json)
    expect("\"triangles\": 3840,")
    foreach(file bin/pellux share/applications/pellux.desktop share/mime/packages/pellux.xml
            share/icons/hicolor/scalable/apps/pellux.svg share/man/man1/pellux.1
            share/man/man1/pellux-batch.1)
        if(NOT EXISTS ${tree}/${file})
            message(FATAL_ERROR "${file} is not installed")
        endif()
    endforeach()
    run(0 ${tree}/bin/pellux --version)
    expect("pellux ")
    # What the manual says is what the programs say.
    foreach(program pellux pellux-batch)
        file(READ ${tree}/share/man/man1/${program}.1 page)
        string(REPLACE "\\-" "-" page "${page}")
        if(program STREQUAL "pellux-batch")
            file(READ ${tree}/share/man/man1/pellux.1 shared)
            string(REPLACE "\\-" "-" shared "${shared}")
            string(APPEND page "${shared}")
        endif()
        run(0 ${tree}/bin/${program} --help)
        string(REGEX MATCHALL "--[a-z][a-z-]+" options "${output}")
        foreach(option IN LISTS options)
            string(FIND "${page}" "${option}" place)
            if(place EQUAL -1)
                message(FATAL_ERROR "${option} of ${program} is missing in its manual page")
            endif()
        endforeach()
    endforeach()

elseif(STEP STREQUAL "loader")
    build_example(minimal-loader)
    run(0 ${batch} ${corner} --no-config --info=json)
    expect("\"type\": \"Tri\"")
    expect("\"triangles\": 4,")
    file(WRITE ${WORK_DIR}/odd.tri "0 0 0  1 0 0")
    run(1 ${batch} ${WORK_DIR}/odd.tri --no-config)
    expect("odd.tri: expected nine numbers for each triangle")

elseif(STEP STREQUAL "command")
    build_example(minimal-command)
    # A corner that fills a box of 2 x 3 x 4.
    file(WRITE ${WORK_DIR}/corner.obj "v 0 0 0\nv 2 0 0\nv 0 3 0\nv 0 0 4\nf 1 2 3\nf 1 2 4\n")
    run(0 ${batch} ${WORK_DIR}/corner.obj --no-config --eval "(box:volume)"
        --eval "(box:volume 1)" --eval "(help 'box:volume)")
    expect("> (box:volume)\n24.0\n")
    expect("> (box:volume 1)\n120.0\n")
    expect("room left on every side of the model")
    expect("(box:volume 2.5)")
    run(1 ${batch} --no-config --eval "(box:volume)")
    expect("box:volume: nothing is loaded")
    run(1 ${batch} --no-config --eval "(box:volume -1)")
    expect("box:volume: parameter \"margin\": expected a number of at least 0 in mm, got")

elseif(STEP STREQUAL "host")
    build_example(minimal-host)
    set(host ${tree}/lib/pellux/minimal-host)
    run(0 ${host} "(doc:load \"${SOURCE_DIR}/examples/gear.stl\")" "(list-tail (doc:bounding-box) 5)")
    expect("(18.0)")
    expect("gear [1] (3840 triangles,")
    run(1 ${host} "(doc:load \"${WORK_DIR}/none.stl\")" "(app:print \"not run\")")
    expect("none.stl: No such file or directory")

else()
    message(FATAL_ERROR "There is no step \"${STEP}\".")
endif()
