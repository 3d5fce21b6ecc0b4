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

# paperkite_plugin(NAME FOLDER HEADERS module… LIBRARIES library…)
#
# One folder of src/ as a library that the program loads when it needs it, beside the program. Of
# the modules that HEADERS names it sees the headers only: it is not linked with them.

function(paperkite_plugin name folder)
    cmake_parse_arguments(PLUGIN "" "" "HEADERS;LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS
        ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)

    set(view ${CMAKE_BINARY_DIR}/include/${name})
    get_filename_component(parent ${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${view}/${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${view}/${folder} SYMBOLIC)

    set(target paperkite_${name})
    add_library(${target} MODULE ${sources})
    set_target_properties(${target} PROPERTIES
        PREFIX "" AUTOMOC ON CXX_VISIBILITY_PRESET hidden
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    target_include_directories(${target} PRIVATE ${view})
    foreach(seen ${PLUGIN_HEADERS})
        target_include_directories(${target} PRIVATE ${CMAKE_BINARY_DIR}/include/${seen})
    endforeach()
    target_link_libraries(${target} PRIVATE ${PLUGIN_LIBRARIES})
endfunction()
