# paperkite_module(NAME FOLDER USES module… LIBRARIES library…)
#
# One folder of src/ as one library. Each module sees its own headers as "folder/Header.h", and
# those of the modules that it names with USES (and theirs), through a folder of links that holds
# nothing else: an include of a folder that is not permitted does not compile.
# USES is inherited by whoever uses this module; LIBRARIES stays inside.

function(paperkite_module name folder)
    cmake_parse_arguments(MODULE "" "" "USES;LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS
        ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)

    set(view ${CMAKE_BINARY_DIR}/include/${name})
    get_filename_component(parent ${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${view}/${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${view}/${folder} SYMBOLIC)

    set(target paperkite_${name})
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${view})
    foreach(used ${MODULE_USES})
        target_link_libraries(${target} PUBLIC paperkite_${used})
    endforeach()
    if(MODULE_LIBRARIES)
        target_link_libraries(${target} PRIVATE ${MODULE_LIBRARIES})
    endif()
endfunction()
