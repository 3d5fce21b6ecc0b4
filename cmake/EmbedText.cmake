# paperkite_embed_text(TARGET FILE FUNCTION): compiles a text file into a target, as a function
# `const char* FUNCTION()` of the namespace paperkite. The build follows changes of the file.

function(paperkite_embed_text target file function)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} text)
    set(generated ${CMAKE_CURRENT_BINARY_DIR}/generated/${function}.cpp)
    file(CONFIGURE OUTPUT ${generated} @ONLY CONTENT
"namespace paperkite {

const char* @function@();

const char* @function@() {
    return R\"EmbeddedText(@text@)EmbeddedText\";
}

} // namespace paperkite
")
    target_sources(${target} PRIVATE ${generated})
endfunction()
