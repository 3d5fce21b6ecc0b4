# Compiler cache, quick linker, warnings and sanitizers, for every target of the project.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
    add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)

if(PAPERKITE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fsanitize=address,undefined)
endif()

# The compiler that brings the fuzzing engine warns about other things than the one of the project.
if(PAPERKITE_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer -Wno-error)
    add_link_options(-fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 16)
        include_directories(BEFORE ${CMAKE_SOURCE_DIR}/fuzz/shim)
    endif()
endif()
